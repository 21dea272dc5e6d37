#include "command/differences.h"

#include <algorithm>

#include "util/characters.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace command {

namespace {

bool equal(const ListedValue* a, const ListedValue* b) {
    if (!a || !b) return a == b;
    return a->type == b->type && a->plainNumber == b->plainNumber && a->text == b->text;
}

class Comparison {
public:
    Comparison(const Compared& a, const Compared& b, const Words& words) : a_(a), b_(b), words_(words) {}

    std::vector<Difference> take() {
        if (a_.level || b_.level)
            againstLevel();
        else if (a_.single && b_.single)
            compare(a_.zones.front(), b_.zones.front());
        else
            byNumber();
        return std::move(found_);
    }

private:
    void againstLevel() {
        for (const Zone& x : a_.zones)
            for (const Zone& y : b_.zones) compare(x, y);
    }

    // A single zone is compared with its like; the others on the other side are not missing here.
    void byNumber() {
        auto a = a_.zones.begin(), b = b_.zones.begin();
        const auto endA = a_.zones.end(), endB = b_.zones.end();
        while (a != endA || b != endB)
            if (b == endB || (a != endA && before(a->key, b->key)))
                onlyIn(a_, *a++, b_);
            else if (a == endA || before(b->key, a->key))
                onlyIn(b_, *b++, a_);
            else
                compare(*a++, *b++);
    }

    void onlyIn(const Compared& side, const Zone& zone, const Compared& other) {
        const std::string text = "only in " + side.text;
        if (!other.single)
            found_.push_back({zone.key, zone.name(), "", &side == &a_ ? text : "", &side == &b_ ? text : ""});
    }

    void compare(const Zone& x, const Zone& y) {
        x_ = &x;
        y_ = &y;
        if (!a_.level && !b_.level) {
            for (const NamedValue& text : ZoneTexts) compareValue(text.value, text.caption);
            for (const NamedValue& level : ZoneLevels) compareValue(level.value, level.caption);
            compareFlags();
        }
        for (const SettingGroup& group : words_.groups())
            for (const Setting& setting : group.settings)
                compareSetting(setting.valueName, setting.caption, x_->find(setting.valueName),
                               y_->find(setting.valueName));
        compareOthers();
    }

    // Values that no description knows, of both zones in the order of their names.
    void compareOthers() {
        auto x = x_->values.begin(), y = y_->values.begin();
        const auto endX = x_->values.end(), endY = y_->values.end();
        while (x != endX || y != endY) {
            const int order = x == endX ? 1 : y == endY ? -1 : util::compareFolded(x->name, y->name);
            const ListedValue *before = order <= 0 ? &*x++ : nullptr, *after = order >= 0 ? &*y++ : nullptr;
            const std::string& name = (before ? before : after)->name;
            if (!equal(before, after) && isSettingName(name) && !words_.settingOf(name))
                compareSetting(name, name.empty() ? "(default value)" : name, before, after);
        }
    }

    // A level says nothing about settings that its template lacks, and a backup nothing about values that it cannot
    // carry.
    void compareSetting(const std::string& value, const std::string& caption, const ListedValue* before,
                        const ListedValue* after) {
        if ((a_.level && !before) || (b_.level && !after)) return;
        if (a_.textsAndNumbers != b_.textsAndNumbers && !carried(before) && !carried(after)) return;
        compareValue(value, caption, before, after);
    }
    static bool carried(const ListedValue* value) {
        if (!value || value->type == ValueType::Binary) return false;
        return !value->name.empty() || value->text.empty();
    }

    void compareValue(std::string_view value, std::string caption) {
        compareValue(value, std::move(caption), x_->find(value), y_->find(value));
    }
    void compareValue(std::string_view value, std::string caption, const ListedValue* before,
                      const ListedValue* after) {
        if (!equal(before, after)) add(std::move(caption), words_.meaning(value, before), words_.meaning(value, after));
    }

    void compareFlags() {
        const ListedValue *before = x_->find(zones::value::Flags), *after = y_->find(zones::value::Flags);
        if (equal(before, after)) return;
        if (!before || !after || !before->plainNumber || !after->plainNumber)
            return add("Flags", words_.meaning(zones::value::Flags, before),
                       words_.meaning(zones::value::Flags, after));
        std::uint32_t different = before->number ^ after->number;
        for (std::size_t i = 0; i < zones::FlagCaptions.size(); ++i, different >>= 1)
            if (different & 1)
                add(std::string(util::trimmed(zones::FlagCaptions[i])), before->number >> i & 1 ? "yes" : "no",
                    after->number >> i & 1 ? "yes" : "no");
        // Bits that no box stands for.
        if (different != 0) add("Flags", util::toDecimal(before->number), util::toDecimal(after->number));
    }

    void add(std::string what, std::string before, std::string after) {
        const Zone& zone = y_->key.empty() ? *x_ : *y_;
        found_.push_back({zone.key, zone.name(), std::move(what), std::move(before), std::move(after)});
    }

    const Compared &a_, &b_;
    const Words& words_;
    const Zone *x_ = nullptr, *y_ = nullptr;
    std::vector<Difference> found_;
};

}  // namespace

std::vector<Difference> differences(const Compared& a, const Compared& b, const Words& words) {
    return Comparison(a, b, words).take();
}

std::string inWords(const std::vector<Difference>& found, const std::string& levels) {
    std::string text;
    const Difference* last = nullptr;
    for (const Difference& d : found) {
        const std::string zone = "Zone " + d.zone + (d.name.empty() ? "" : ", " + d.name);
        if (!last || last->zone != d.zone) text += (last ? "\n" : "") + oneLine(d.zone.empty() ? levels : zone) + "\n";
        const std::string what = d.what.empty() ? d.before + d.after : d.what + ": " + d.before + " -> " + d.after;
        text += "  " + oneLine(what) + "\n";
        last = &d;
    }
    return text;
}

Table asTable(const std::vector<Difference>& found) {
    Table table{{"Zone", "Name", "Setting", "Before", "After"}, {}};
    for (const Difference& d : found) table.rows.push_back({d.zone, d.name, d.what, d.before, d.after});
    return table;
}

}  // namespace command
