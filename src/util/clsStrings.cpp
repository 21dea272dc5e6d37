#include "util/clsStrings.h"

#include "util/Error.h"
#include "util/characters.h"
#include "util/procedure.h"

namespace {
// Where the scan stands: at the start of an element, in an unquoted one, between quotes, after a closing quote.
enum class State { Start, Plain, Quoted, Closed };
}  // namespace

std::int32_t clsStrings::InitialiseVar(const std::string& text, const std::string& delimiters) {
    return Initialise(text, delimiters);
}

std::int32_t clsStrings::Initialise(const std::string& text, const std::string& delimiters) {
    text_ = text;
    boundaries_.assign(1, 0);
    if (text_.find('"') == std::string::npos) {
        SplitPlain(delimiters);
    } else {
        SplitQuoted(delimiters);
    }
    count_ = static_cast<std::int32_t>(boundaries_.size());
    boundaries_.push_back(static_cast<std::int32_t>(text_.size() + 1));
    return count_;
}

// Nearly every text has no quotes and one delimiter, for which the library searches many bytes at a time.
void clsStrings::SplitPlain(const std::string& delimiters) {
    if (delimiters.size() == 1) {
        for (auto at = util::find(text_, delimiters); at != std::string::npos;
             at = util::find(text_, delimiters, at + 1))
            boundaries_.push_back(static_cast<std::int32_t>(at + 1));
        return;
    }
    for (std::size_t at = 0; at < text_.size(); at = util::afterCharacter(text_, at))
        if (delimiters.find(text_[at]) != std::string::npos) boundaries_.push_back(static_cast<std::int32_t>(at + 1));
}

void clsStrings::SplitQuoted(const std::string& delimiters) {
    State state = State::Start;
    for (std::size_t i = 0; i < text_.size(); i = util::afterCharacter(text_, i)) {
        const char c = text_[i];
        if (state != State::Quoted && delimiters.find(c) != std::string::npos) {
            boundaries_.push_back(static_cast<std::int32_t>(i + 1));
            state = State::Start;
        } else if (c == '"') {
            state = state == State::Quoted ? State::Closed : State::Quoted;
        } else if (state == State::Closed) {
            // A refused text must leave nothing that could be taken for an element.
            Initialise({}, delimiters);
            throw util::Error(0x80040064, "Elements.Initialise",
                              "Invalid character in an element that contains a quoted string");
        } else if (state != State::Quoted) {
            state = State::Plain;
        }
    }
}

std::string clsStrings::ElementAsString(std::int32_t index) const {
    if (index < 1 || index > count_) return {};
    const auto before = static_cast<std::size_t>(boundaries_[static_cast<std::size_t>(index - 1)]);
    const auto after = static_cast<std::size_t>(boundaries_[static_cast<std::size_t>(index)]);
    return text_.substr(before, after - before - 1);
}

std::string clsStrings::Replace(const std::string& text, const std::string& find,
                                const std::string& replaceWith) const {
    return procedure("clsStrings.Replace", [&] {
        if (find.empty()) return text;
        std::string result;
        std::size_t rest = 0;
        for (auto at = util::find(text, find); at != std::string::npos; at = util::find(text, find, rest)) {
            result.append(text, rest, at - rest).append(replaceWith);
            rest = at + find.size();
        }
        return result.append(text, rest);
    });
}
