#include "cli/case_file.h"

#include <cctype>
#include <fstream>
#include <stdexcept>

namespace hourwright::test {

namespace {

// Words as a shell separates them: blanks, single quotes, double quotes and backslashes.
std::vector<std::string> splitWords(std::string_view text) {
    std::vector<std::string> words;
    bool inWord = false;
    char quote = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote == 0 && c == ' ') {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (quote != 0 && c == quote)
            quote = 0;
        else if (quote == 0 && (c == '\'' || c == '"'))
            quote = c;
        else if (c == '\\' && quote != '\'' && i + 1 < text.size())
            words.back() += text[++i];
        else
            words.back() += c;
    }
    return words;
}

// What stands behind the sign of a line; "\r" at its end is a carriage return.
std::string rest(std::string_view line) {
    std::string text(line.substr(line.size() > 1 && line[1] == ' ' ? 2 : 1));
    if (text.ends_with("\\r"))
        text.replace(text.size() - 2, 2, "\r");
    return text;
}

struct Name {
    std::size_t begin;
    std::size_t end; // behind the closing brace
    std::string text;
};

// The next name in braces from a place on; at the end when there is none.
Name nextName(std::string_view text, std::size_t from) {
    for (auto open = text.find('{', from); open != std::string_view::npos; open = text.find('{', open + 1)) {
        auto close = open + 1;
        while (close < text.size() && std::isalpha(static_cast<unsigned char>(text[close])) != 0)
            ++close;
        if (close > open + 1 && close < text.size() && text[close] == '}')
            return {open, close + 1, std::string(text.substr(open + 1, close - open - 1))};
    }
    return {text.size(), text.size(), {}};
}

void readLine(CaseFile& file, std::string_view line, int number, std::string& why) {
    const auto step = [&]() -> CaseStep& {
        if (file.steps.empty())
            throw std::runtime_error("output before a command in line " + std::to_string(number));
        return file.steps.back();
    };
    if (line.empty())
        return;
    if (line.starts_with("locale: "))
        file.locale = line.substr(8);
    else if (line.front() == '#')
        why = rest(line);
    else if (line.starts_with("$ hwctl"))
        file.steps.push_back({.line = number, .why = why, .words = splitWords(line.substr(7))});
    else if (line.front() == '>')
        (step().out += rest(line)) += '\n';
    else if (line.front() == '!')
        (step().err += rest(line)) += '\n';
    else if (line.front() == '=')
        step().exitCode = std::stoi(rest(line));
    else
        throw std::runtime_error("line " + std::to_string(number) + " is of no kind");
}

} // namespace

CaseFile readCaseFile(const std::filesystem::path& path) {
    CaseFile file;
    std::ifstream stream(path);
    std::string why;
    int number = 0;
    for (std::string line; std::getline(stream, line);)
        readLine(file, line, ++number, why);
    return file;
}

std::string withNumbers(std::string_view text, const CaseNumbers& numbers) {
    std::string out;
    std::size_t done = 0;
    while (done < text.size()) {
        const Name name = nextName(text, done);
        out += text.substr(done, name.begin - done);
        const auto known = numbers.find(name.text);
        out += known != numbers.end() ? known->second : text.substr(name.begin, name.end - name.begin);
        done = name.end;
    }
    return out;
}

void keepNumbers(std::string_view expected, std::string_view actual, CaseNumbers& numbers) {
    for (;;) {
        const std::string known = withNumbers(expected, numbers);
        const Name name = nextName(known, 0);
        if (name.text.empty() || actual.substr(0, name.begin) != std::string_view(known).substr(0, name.begin))
            return;
        const auto end = actual.find_first_not_of("0123456789", name.begin);
        const std::string_view digits = actual.substr(name.begin, end - name.begin);
        if (digits.empty())
            return;
        numbers[name.text] = digits;
    }
}

} // namespace hourwright::test
