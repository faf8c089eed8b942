#include "hostkit/charts/axis_font.h"

#include "host/structures.h"

#include <string>

namespace hostkit {

namespace {

std::string text_of(const char* variable)
{
    const void* text = Fct_Variable_Value(variable, nullptr, nullptr, nullptr);
    return text ? static_cast<const char*>(text) : "";
}

struct Kept_Font {
    std::string name;
    std::string weight;
    short scale = 0;
    HFONT font = nullptr;
};

}

HFONT Axis_Font(short scale)
{
    static Kept_Font& kept = *new Kept_Font;
    const std::string name = text_of("$INTERFACE_TOOL_FONT_NAME");
    const std::string weight = text_of("$INTERFACE_TOOL_FONT_WEIGHT");
    if (kept.font && kept.name == name && kept.weight == weight && kept.scale == scale)
        return kept.font;
    if (kept.font)
        DeleteObject(kept.font);
    kept = {name, weight, scale, Y_Create_Font(name.c_str(), scale, weight.c_str())};
    return kept.font;
}

}
