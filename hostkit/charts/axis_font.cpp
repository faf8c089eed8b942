#include "hostkit/charts/axis_font.h"

#include "host/structures.h"

#include <map>
#include <string>
#include <utility>

namespace hostkit {

namespace {

std::string text_of(const char* variable)
{
    const void* text = Fct_Variable_Value(variable, nullptr, nullptr, nullptr);
    return text ? static_cast<const char*>(text) : "";
}

struct Kept_Fonts {
    std::string name;
    std::string weight;
    std::map<short, HFONT> by_scale;
};

}

HFONT Axis_Font(short scale)
{
    static Kept_Fonts& kept = *new Kept_Fonts;
    std::string name = text_of("$INTERFACE_TOOL_FONT_NAME");
    std::string weight = text_of("$INTERFACE_TOOL_FONT_WEIGHT");
    if (kept.name != name || kept.weight != weight) {
        for (const auto& [_, font] : kept.by_scale)
            DeleteObject(font);
        kept = {std::move(name), std::move(weight), {}};
    }
    HFONT& font = kept.by_scale[scale];
    if (!font)
        font = Y_Create_Font(kept.name.c_str(), scale, kept.weight.c_str());
    return font;
}

}
