#include "workbench/document/readers.h"
#include "workbench/document/text.h"

#include <charconv>
#include <sstream>

namespace document {

TextHeader::TextHeader(std::string_view text, std::string_view separator)
{
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        if (const auto at = line.find(separator); at != line.npos && !line.starts_with('#'))
            lines_.emplace_back(lower_case(trimmed(line.substr(0, at))), trimmed(line.substr(at + separator.size())));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::string TextHeader::value(std::string_view key) const
{
    for (auto line = lines_.rbegin(); line != lines_.rend(); ++line)
        if (line->first == key)
            return line->second;
    return {};
}

long long TextHeader::integer(std::string_view key, long long otherwise) const
{
    const auto text = value(key);
    long long number = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

double TextHeader::number(std::string_view key, double otherwise) const
{
    return number_of(value(key)).value_or(otherwise);
}

std::vector<std::string> words_of(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::optional<double> number_of(std::string_view text)
{
    const auto plain = trimmed(text);
    const auto* const start = plain.data() + (plain.starts_with('+') ? 1 : 0);
    double number = 0;
    if (std::from_chars(start, plain.data() + plain.size(), number).ec != std::errc())
        return {};
    return number;
}

}
