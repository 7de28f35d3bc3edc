#include "app/start_options.h"

#include "platform/utf.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace hourwright::app {

namespace {

using Words = std::span<const std::string>;

constexpr std::array<std::string_view, 6> toolkitOptions = {"-platform",      "-style",   "-session",
                                                            "-platformtheme", "-display", "-qwindowgeometry"};

// A number of exactly so many digits.
std::optional<std::uint16_t> digits(std::string_view text) {
    std::uint16_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<platform::SystemTime> dateOf(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = digits(text.substr(0, 4));
    const auto month = digits(text.substr(5, 2));
    const auto day = digits(text.substr(8, 2));
    if (!year || !month || !day)
        return std::nullopt;
    const auto instant = platform::toFileTime({.year = *year, .month = *month, .day = *day});
    return instant ? platform::toSystemTime(*instant) : std::nullopt;
}

std::string dateText(const platform::SystemTime& date) {
    std::string text = "0000-00-00";
    const auto put = [&](std::size_t end, unsigned number) {
        for (; number != 0; number /= 10)
            text[--end] = static_cast<char>('0' + number % 10);
    };
    put(4, date.year);
    put(7, date.month);
    put(10, date.day);
    return text;
}

struct ViewName {
    std::string_view name;
    PeriodKind kind;
};
constexpr std::array<ViewName, 3> viewNames = {
    {{"day", PeriodKind::day}, {"week", PeriodKind::week}, {"month", PeriodKind::month}}};

class Reader {
public:
    explicit Reader(Words words) : words_(words) {}

    StartOptions read() {
        while (next_ < words_.size() && options_.error.empty())
            take(words_[next_++]);
        return std::move(options_);
    }

private:
    void take(const std::string& word) {
        const bool option = word.size() > 1 && word.front() == '-' && !onlyFiles_;
        if (word == "--" && !onlyFiles_)
            onlyFiles_ = true;
        else if (!option)
            takeFile(word);
        else if (!takeFlag(word) && !takeToolkitOption(word))
            takeValue(word);
    }

    void takeFile(const std::string& word) {
        if (!options_.file.empty() || word.empty())
            options_.error = word.empty() ? "a file has no name" : "only one file can be opened";
        options_.file = word;
    }

    bool takeFlag(std::string_view word) {
        bool* const flag = word == "--help" || word == "-h" ? &options_.help
                           : word == "--version"            ? &options_.version
                           : word == "--new-entry"          ? &options_.newEntry
                                                            : nullptr;
        if (flag != nullptr)
            *flag = true;
        return flag != nullptr;
    }

    bool takeToolkitOption(std::string_view word) {
        if (word.starts_with("--"))
            word.remove_prefix(1);
        if (std::ranges::find(toolkitOptions, word) == toolkitOptions.end())
            return false;
        ++next_;
        return true;
    }

    void takeValue(const std::string& word) {
        const auto equals = word.find('=');
        const std::string name = word.substr(0, equals);
        if (name != "--home" && name != "--locale" && name != "--view" && name != "--date") {
            options_.error = "unknown option '" + word + "'";
            return;
        }
        if (equals == std::string::npos && next_ == words_.size()) {
            options_.error = "the option " + name + " needs a value";
            return;
        }
        set(name, equals == std::string::npos ? words_[next_++] : word.substr(equals + 1));
    }

    void set(std::string_view name, const std::string& value) {
        bool good = !value.empty();
        if (name == "--home") {
            options_.home = value;
        } else if (name == "--locale") {
            options_.locale = value;
        } else if (name == "--date") {
            options_.date = dateOf(value);
            good = options_.date.has_value();
        } else {
            const auto found = std::ranges::find(viewNames, value, &ViewName::name);
            good = found != viewNames.end();
            if (good)
                options_.view = found->kind;
        }
        if (!good)
            options_.error = "the option " + std::string(name) + " cannot be '" + value + "'";
    }

    Words words_;
    std::size_t next_ = 0;
    bool onlyFiles_ = false;
    StartOptions options_;
};

bool isPlain(std::string_view word) {
    return !word.empty() && word.find_first_of(" \t\"\\") == std::string_view::npos;
}

} // namespace

StartOptions parseStartOptions(Words words) {
    return Reader(words).read();
}

std::u16string handOverLine(const StartOptions& options, const std::filesystem::path& workingFolder) {
    std::vector<std::string> words;
    if (options.newEntry)
        words.emplace_back("--new-entry");
    if (options.view) {
        words.emplace_back("--view");
        words.emplace_back(std::ranges::find(viewNames, *options.view, &ViewName::kind)->name);
    }
    if (options.date) {
        words.emplace_back("--date");
        words.push_back(dateText(*options.date));
    }
    if (!options.file.empty()) // an absolute path is never taken for an option
        words.push_back((workingFolder / options.file).lexically_normal().string());
    return joinLine(words);
}

StartOptions parseHandOverLine(std::u16string_view line) {
    return parseStartOptions(splitLine(line));
}

std::vector<std::string> splitLine(std::u16string_view line) {
    const std::string text = platform::toUtf8(line);
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (!quoted && (c == ' ' || c == '\t')) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (c == '"')
            quoted = !quoted;
        else
            words.back().push_back(c == '\\' && i + 1 < text.size() ? text[++i] : c);
    }
    return words;
}

std::u16string joinLine(Words words) {
    std::string line;
    for (const std::string& word : words) {
        if (!line.empty())
            line.push_back(' ');
        if (isPlain(word)) {
            line.append(word);
            continue;
        }
        line.push_back('"');
        for (const char c : word) {
            if (c == '"' || c == '\\')
                line.push_back('\\');
            line.push_back(c);
        }
        line.push_back('"');
    }
    return platform::toUtf16(line);
}

std::string startOptionsHelp() {
    return "Usage: hourwright [OPTIONS] [FILE]\n"
           "\n"
           "Records working time and expenses, prices them and marks them billed and paid.\n"
           "When Hourwright runs already, that window comes forward and does what the options say.\n"
           "\n"
           "  --new-entry             open the editor on a new time entry\n"
           "  --view day|week|month   show a period of this kind\n"
           "  --date YYYY-MM-DD       show the period with this day\n"
           "  --home DIR              keep everything in this folder (else $HOURWRIGHT_HOME)\n"
           "  --locale NAME           how dates and numbers are written (else the environment's)\n"
           "  --help, --version       show this, or the version, and end\n"
           "\n"
           "The command line hwctl works on the same records; see hwctl --help.\n";
}

} // namespace hourwright::app
