#include "hostkit/basics/report.h"

#include <cstdio>
#include <utility>

namespace hostkit {

namespace {

bool print(const Report& report)
{
    return std::fprintf(stderr, "%s\n", Plain_Text(report.text).c_str()) >= 0;
}

}

// Not part of the header: the one sink of the program.
Report_Sink& current_sink()
{
    static Report_Sink& sink = *new Report_Sink{print, nullptr};
    return sink;
}

bool Level_Is_Shown(int level)
{
    return level < 10 || Flag_Trace >= level - 10;
}

Report_Sink Set_Report_Sink(Report_Sink sink)
{
    if (!sink.show)
        sink.show = print;
    return std::exchange(current_sink(), std::move(sink));
}

std::string Plain_Text(const std::string& text)
{
    constexpr char colored_line = '\xf1';
    constexpr char emphasis_on = '\x01';
    constexpr char emphasis_off = '\x02';
    std::string plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        // 0xF1 also begins a UTF-8 character, but never before a byte as small as a colour number.
        const bool colors = text[i] == colored_line && i + 1 < text.size() && (text[i + 1] & 0x80) == 0;
        if (colors)
            ++i;
        else if (text[i] != emphasis_on && text[i] != emphasis_off)
            plain += text[i];
    }
    return plain;
}

}
