#include "backup/RegistryExport.h"

#include <algorithm>
#include <charconv>

#include "util/characters.h"

namespace backup {

using platform::Bytes;

namespace {

constexpr std::size_t None = std::string_view::npos;
constexpr char Replaced = '\x1A';  // stands for a letter of UTF-16 that is not ASCII

constexpr std::string_view TextMark = "\"=\"";
constexpr std::string_view NumberMark = "\"=dword:";
constexpr std::size_t NumberDigits = 8;
constexpr std::string_view EmptyDefault = "@=\"\"";

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && util::equalFolded(text.substr(0, start.size()), start);
}

// All of `digits`, 1 to 8 hexadecimal ones.
std::optional<std::uint32_t> hexadecimal(std::string_view digits) {
    std::uint32_t number = 0;
    if (digits.empty() || digits.size() > NumberDigits) return std::nullopt;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

std::string fromUtf16(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        text.push_back(bytes[i + 1] == 0 && low < 128 ? static_cast<char>(low) : Replaced);
    }
    return text;
}

void markReplaced(ExportedValue& value) {
    for (std::string* text : {&value.name, &value.text}) {
        if (text->find(Replaced) == None) continue;
        std::replace(text->begin(), text->end(), Replaced, '?');
        value.exact = false;
    }
}

// A line of this program's that holds a number: the name between its first quote and the last mark.
std::optional<ExportedValue> ownNumber(std::string_view line) {
    const std::size_t tail = NumberMark.size() + NumberDigits;
    if (line.size() < tail + 1 || line.front() != '"') return std::nullopt;
    const std::size_t mark = line.size() - tail;
    if (line.substr(mark, NumberMark.size()) != NumberMark) return std::nullopt;
    const auto number = hexadecimal(line.substr(mark + NumberMark.size()));
    if (!number) return std::nullopt;
    ExportedValue value;
    value.name = line.substr(1, mark - 1);
    value.type = platform::RegDword;
    value.number = *number;
    return value;
}

bool opensOwnValue(std::string_view line) {
    if (line == EmptyDefault) return true;
    return line.starts_with('"') && (line.find(TextMark, 1) != None || ownNumber(line));
}

// Where an export or one of its blocks begins. Only roots count: a text may well have a line "[sic]".
bool opensBlock(std::string_view line) {
    return startsWith(line, "[HK") || startsWith(line, "[-HK") || line == "REGEDIT4";
}

std::string halved(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t next = util::afterCharacter(text, i);
        result.append(text.substr(i, next - i));
        i = text.substr(i, 2) == "\\\\" ? next + 1 : next;
    }
    return result;
}

// Takes a quoted text from the front, as registry editors do; nothing when it is not closed.
std::optional<std::string> takeQuoted(std::string_view& rest) {
    if (!rest.starts_with('"')) return std::nullopt;
    std::string text;
    std::size_t plain = 1;  // where what can be taken as it stands begins
    for (std::size_t i = 1, next; i < rest.size(); i = next) {
        next = util::afterCharacter(rest, i);
        const bool escaped = rest[i] == '\\' && i + 1 < rest.size();
        if (rest[i] != '"' && !escaped) continue;
        text.append(rest.substr(plain, i - plain));
        if (!escaped) {
            rest.remove_prefix(i + 1);
            return text;
        }
        plain = next;
        if (const char c = rest[next]; c == 'n' || c == 'r') {
            text.push_back(c == 'n' ? '\n' : '\r');
            ++plain;
        }
        next = util::afterCharacter(rest, next);
    }
    return std::nullopt;
}

// "1,a0,ff"
std::optional<Bytes> hexadecimalBytes(std::string_view list) {
    Bytes bytes;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        const std::string_view digits = withoutBlanks(list.substr(0, comma));
        const auto byte = hexadecimal(digits);
        if (!byte || digits.size() > 2) return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(*byte));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return bytes;
}

// "hex:...", "hex(7):..."
bool readBytes(std::string_view data, ExportedValue& value) {
    const std::size_t colon = data.find(':');
    if (!startsWith(data, "hex") || colon == None) return false;
    const std::string_view type = data.substr(3, colon - 3);
    value.type = platform::RegBinary;
    if (!type.empty()) {
        if (type.size() < 3 || type.front() != '(' || type.back() != ')') return false;
        const auto number = hexadecimal(type.substr(1, type.size() - 2));
        if (!number) return false;
        value.type = *number;
    }
    auto bytes = hexadecimalBytes(data.substr(colon + 1));
    if (!bytes) return false;
    value.data = std::move(*bytes);
    return true;
}

// Takes the name of a value and the "=" behind it from the front; nothing when there is none.
std::optional<std::string> takeName(std::string_view& rest) {
    std::optional<std::string> name = rest.starts_with('@') ? std::string() : takeQuoted(rest);
    if (rest.starts_with('@')) rest.remove_prefix(1);
    rest = withoutBlanks(rest);
    if (!name || !rest.starts_with('=')) return std::nullopt;
    rest = withoutBlanks(rest.substr(1));
    return name;
}

bool holdsBytes(std::string_view line) {
    line = withoutBlanks(line);
    return takeName(line) && startsWith(line, "hex");
}

// What follows the "=" of a value. False for what is no data.
bool readData(std::string_view data, ExportedValue& value) {
    if (data.starts_with('"')) {
        auto text = takeQuoted(data);
        data = withoutBlanks(data);
        if (!text || !(data.empty() || data.starts_with(';'))) return false;
        value.type = platform::RegSz;
        value.text = std::move(*text);
        return true;
    }
    if (startsWith(data, "dword:")) {
        const auto number = hexadecimal(withoutBlanks(data.substr(6)));
        if (!number) return false;
        value.type = platform::RegDword;
        value.number = *number;
        return true;
    }
    return readBytes(data, value);
}

}  // namespace

RegistryExport::RegistryExport(std::string bytes)
    : bytes_(bytes.starts_with("\xFF\xFE") ? fromUtf16(bytes) : std::move(bytes)) {
    splitLines();
    findClosingLines();
}

// A zero ends a line as well: no text holds one, and for some editors the line is over there.
void RegistryExport::splitLines() {
    lines_.reserve(static_cast<std::size_t>(std::count(bytes_.begin(), bytes_.end(), '\n')) + 1);
    const auto endsLine = [](char c) { return c == '\r' || c == '\n' || c == '\0'; };
    for (auto begin = bytes_.cbegin(); begin != bytes_.cend();) {
        const auto end = std::find_if(begin, bytes_.cend(), endsLine);
        lines_.emplace_back(begin, end);
        const std::string_view rest(end, bytes_.cend());
        begin = end + (rest.starts_with("\r\n") ? 2 : !rest.empty());
    }
}

// For every line in one pass from the end: to search from every text that is not closed would take as long as the
// square of the file's size.
void RegistryExport::findClosingLines() {
    nextFilled_.assign(lines_.size() + 1, lines_.size());
    nextClosing_.assign(lines_.size() + 1, None);
    for (std::size_t i = lines_.size(); i-- > 0;) {
        const std::string_view line = lines_[i];
        nextFilled_[i] = line.empty() ? nextFilled_[i + 1] : i;
        if (opensBlock(line)) continue;  // no text goes on across another block
        nextClosing_[i] = closesText(i) ? i : nextClosing_[i + 1];
    }
}

bool RegistryExport::closesText(std::size_t index) const {
    if (!lines_[index].ends_with('"')) return false;
    const std::size_t next = index + 1;
    if (next == lines_.size() || opensOwnValue(lines_[next])) return true;
    const std::size_t filled = nextFilled_[next];
    return filled == lines_.size() || opensBlock(lines_[filled]);
}

std::optional<RegistryExport::Item> RegistryExport::next() {
    for (; at_ < lines_.size(); ++at_) {
        const std::string_view line = lines_[at_];
        if (line == OwnExportMark) own_ = true;
        if (line == "REGEDIT4") own_ = false;
        const bool header = line == "REGEDIT4" || line == "Windows Registry Editor Version 5.00";
        if (!header && !line.starts_with(';')) break;
    }
    if (at_ == lines_.size()) return std::nullopt;

    Item item;
    const std::size_t first = at_;
    if (auto value = own_ ? ownValue() : std::nullopt) {
        item.kind = Kind::Value;
        item.value = std::move(*value);
    } else {
        item = editorsItem();
    }
    if (item.kind == Kind::Key || item.kind == Kind::DeletedKey) key_ = item.key;
    item.key = key_;
    item.own = own_;
    item.line = first + 1;
    markReplaced(item.value);
    item.lines = std::span(lines_).subspan(first, at_ - first);
    return item;
}

// Leaves `at_` after the value; where it was when there is none.
std::optional<ExportedValue> RegistryExport::ownValue() {
    const std::string_view line = lines_[at_];
    if (!line.starts_with('"')) return std::nullopt;
    // First: a text that ends like a number would have to go on in the next line.
    if (auto number = ownNumber(line)) {
        ++at_;
        return number;
    }
    return ownText(line);
}

std::optional<ExportedValue> RegistryExport::ownText(std::string_view line) {
    const std::size_t mark = line.find(TextMark, 1);
    if (mark == None) return std::nullopt;
    const std::size_t begin = mark + TextMark.size();
    // The last character of the line may be the quote that opens the text.
    const std::size_t closing = nextClosing_[line.size() > begin ? at_ : at_ + 1];
    if (closing == None) return std::nullopt;
    ExportedValue value;
    value.name = line.substr(1, mark - 1);
    value.type = platform::RegSz;
    const char *const from = line.data() + begin, *const end = lines_[closing].data() + lines_[closing].size() - 1;
    value.text.assign(from, end);
    if (util::equalFolded(value.name, "Icon")) value.text = halved(value.text);
    at_ = closing + 1;
    return value;
}

RegistryExport::Item RegistryExport::editorsItem() {
    const std::string_view line = lines_[at_++];
    if (auto text = own_ ? std::nullopt : editorsText(line)) return *std::move(text);
    if (!line.ends_with('\\') || !holdsBytes(line)) return asEditorsRead(line);
    // Binary data goes on in the next line after a backslash.
    std::string joined(line);
    for (; joined.ends_with('\\') && at_ < lines_.size(); joined.append(withoutBlanks(lines_[at_++])))
        joined.pop_back();
    return asEditorsRead(joined);
}

// A text with line breaks in it, which some editors write as they are. Leaves `at_` behind its last line; where it was
// when `line` opens none.
std::optional<RegistryExport::Item> RegistryExport::editorsText(std::string_view line) {
    std::string_view rest = withoutBlanks(line);
    if (!takeName(rest) || !rest.starts_with('"') || takeQuoted(rest)) return std::nullopt;
    for (std::size_t i = at_; i < lines_.size() && !opensBlock(lines_[i]); ++i) {
        const std::string inText = "\"" + std::string(lines_[i]);
        if (std::string_view open = inText; !takeQuoted(open)) continue;
        const std::string_view whole(line.data(), static_cast<std::size_t>(lines_[i].end() - line.begin()));
        Item item = asEditorsRead(whole);
        if (item.kind != Kind::Value || whole.find('\0') != None) break;
        at_ = i + 1;
        return item;
    }
    return std::nullopt;
}

RegistryExport::Item RegistryExport::asEditorsRead(std::string_view line) {
    Item item;
    std::string_view rest = withoutBlanks(line);
    if (line.empty()) item.kind = Kind::EmptyLine;
    if (rest.starts_with('[')) {
        const std::size_t end = rest.rfind(']');
        if (end == None) return item;
        const bool deleted = rest.substr(1).starts_with('-');
        item.kind = deleted ? Kind::DeletedKey : Kind::Key;
        item.key = rest.substr(deleted ? 2 : 1, end - (deleted ? 2 : 1));
        return item;
    }
    auto name = takeName(rest);
    if (!name) return item;
    item.value.name = std::move(*name);
    if (rest == "-")
        item.kind = Kind::DeletedValue;
    else if (readData(rest, item.value))
        item.kind = Kind::Value;
    return item;
}

}  // namespace backup
