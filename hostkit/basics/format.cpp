#include "hostkit/basics/format.h"

#include "platform/windows_api.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace hostkit {

namespace {

constexpr char flags[] = "-+ #0'";
constexpr char lengths[] = "hlLzjt";

std::string printed(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(length > 0 ? static_cast<size_t>(length) : 0, ' ');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

std::string printed_one(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::string text = printed(format, arguments);
    va_end(arguments);
    return text;
}

// Wide characters are 16 or 32 bits; the converter takes 16.
std::basic_string<WCHAR> utf16(const wchar_t* text, size_t most)
{
    std::basic_string<WCHAR> units;
    for (size_t i = 0; i < most && text[i]; ++i) {
        const auto character = static_cast<std::uint32_t>(text[i]);
        if (character > 0xffff) {
            units += static_cast<WCHAR>(0xd7c0 + (character >> 10));
            units += static_cast<WCHAR>(0xdc00 + (character & 0x3ff));
        } else {
            units += static_cast<WCHAR>(character);
        }
    }
    return units;
}

// At most so many bytes, of whole characters.
std::string utf8(const wchar_t* text, size_t most)
{
    const auto units = utf16(text ? text : L"(null)", most);
    const int length = static_cast<int>(units.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, units.data(), length, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<size_t>(bytes), ' ');
    WideCharToMultiByte(CP_UTF8, 0, units.data(), length, converted.data(), bytes, nullptr, nullptr);
    if (converted.size() > most) {
        while (most > 0 && (converted[most] & 0xc0) == 0x80)
            --most;
        converted.resize(most);
    }
    return converted;
}

// One conversion of a format after another, because the arguments cannot be handed on in part.
class Piecewise {
public:
    Piecewise(const char* format, va_list arguments) : format_(format) { va_copy(arguments_, arguments); }
    ~Piecewise() { va_end(arguments_); }
    Piecewise(const Piecewise&) = delete;
    Piecewise& operator=(const Piecewise&) = delete;

    std::string text()
    {
        std::string text;
        while (*format_) {
            const size_t plain = std::strcspn(format_, "%");
            text.append(format_, plain);
            format_ += plain;
            if (*format_)
                text += conversion();
        }
        return text;
    }

private:
    std::string conversion()
    {
        std::string start(format_++, 1);
        start += taken(flags);
        start += number();
        const std::string precision = this->precision();
        const std::string length = taken(lengths);
        const char type = *format_ ? *format_++ : '%';
        if (type == 's' && length == "l")
            return printed_one((start + "s").c_str(), wide_text(precision).c_str());
        return argument(start + precision + length + type, length, type);
    }

    std::string taken(const char* characters)
    {
        const size_t count = std::strspn(format_, characters);
        format_ += count;
        return {format_ - count, count};
    }

    // A width or precision, which may be an argument.
    std::string number()
    {
        if (*format_ != '*')
            return taken("0123456789");
        ++format_;
        return std::to_string(va_arg(arguments_, int));
    }

    // A negative one is none.
    std::string precision()
    {
        if (*format_ != '.')
            return {};
        ++format_;
        const std::string digits = number();
        return digits[0] == '-' ? std::string() : "." + digits;
    }

    std::string wide_text(const std::string& precision)
    {
        const size_t most = !precision.empty() ? std::strtoul(precision.c_str() + 1, nullptr, 10) : std::string::npos;
        return utf8(va_arg(arguments_, const wchar_t*), most);
    }

    std::string argument(const std::string& format, const std::string& length, char type)
    {
        const char* const one = format.c_str();
        if (type == '%')
            return "%";
        if (type == 's')
            return printed_one(one, va_arg(arguments_, const char*));
        if (type == 'p')
            return printed_one(one, va_arg(arguments_, void*));
        if (std::strchr("aAeEfFgG", type))
            return length == "L" ? printed_one(one, va_arg(arguments_, long double))
                                 : printed_one(one, va_arg(arguments_, double));
        if (length == "l")
            return printed_one(one, va_arg(arguments_, long));
        if (length == "ll" || length == "j")
            return printed_one(one, va_arg(arguments_, long long));
        if (length == "z" || length == "t")
            return printed_one(one, va_arg(arguments_, std::ptrdiff_t));
        return printed_one(one, va_arg(arguments_, int));
    }

    const char* format_;
    va_list arguments_;
};

bool takes_wide_text(const char* format)
{
    for (const char* at = std::strchr(format, '%'); at; at = std::strchr(at, '%')) {
        ++at;
        at += std::strspn(at, flags);
        at += std::strspn(at, "*.-0123456789");
        if (std::strncmp(at, "ls", 2) == 0)
            return true;
        at += *at == '%';
    }
    return false;
}

}

std::string Formatted(const char* format, va_list arguments)
{
    return takes_wide_text(format) ? Piecewise(format, arguments).text() : printed(format, arguments);
}

}
