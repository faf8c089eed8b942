#include "hostkit/structures/standard_variables.h"

#include "host/gadgets.h"

namespace hostkit {

namespace {

using enum Variable_Type;

constexpr Standard_Variable variables[] = {
    {"$TAG_NB", Unsigned_16},
    {"$TAG_CUR", Unsigned_16},
    {"$TAG_RED", Array},
    {"$TAG_GRN", Array},
    {"$TAG_BLU", Array},
    {"$TAG_LABEL", Array},
    {"$TAG_ENABLE", Array},
    {"$TAG_SELECT", Array},
    {"$TAG_LOCK", Array},
    {"$MARKER_NB", Unsigned_16},
    {"$MARKER_CUR", Unsigned_16},
    {"$MARKER_LABEL", Array},
    {"$MARKER_COLOR", Array},
    {"$MARKER_ENABLE", Array},
    {"$BRUSH_NB", Unsigned_16},
    {"$BRUSH_CUR", Unsigned_16},
    {"$BRUSH_SIZE", Array},
    {"$BRUSH_RADIUS", Unsigned_16},
    {"$BRUSH_PT", Array},
    {"$WINDOW_CUR", Object},
    {"$WINDOW_NB", Unsigned_16},
    {"$FRAME_CUR", Array},
    {"$FRAME_OVR", Object},
    {"$MOUSE_FRM", Four_Floats},
    {"$DB_1D_ROOT_PT", Object},
    {"$DB_2D_ROOT_PT", Object},
    {"$DB_3D_ROOT_PT", Object},
    {"$DB_2D_FILE_NB", Unsigned_16},
    {"$DB_2D_FILE_PT", Array},
    {"$GLI_COLOR_COMPONENT", Unsigned_8},
    {"$SELECT_GLI_MIN", Float},
    {"$SELECT_GLI_MAX", Float},
    {"$GLI_HISTO_BINS_MAX", Unsigned_16},
    {"$GLI_HISTO_BINS_NB", Unsigned_16},
    {"$REGIONAL_SEPARATOR", Unsigned_8},
    {"$DEFAULT_FILE_PATH", String},
    {"$FILE_EXTENSION_ALL", String},
    {"$FILE_EXTENSION_EXCEL", String},
    {"$DEFAULT_ICON_PATH", String},
    {"$INTERFACE_LOCK_FOCUS", Unsigned_8},
    {"$INTERFACE_SPACE_DIM", Signed_16},
    {"$INTERFACE_BORDER_DIM", Signed_16},
    {"$INTERFACE_CURSOR_DIM", Signed_16},
    {"$INTERFACE_BUTTON_DIM_SML", Signed_16},
    {"$INTERFACE_BUTTON_DIM_BIG", Signed_16},
    {"$INTERFACE_LIST_DIM_SML", Signed_16},
    {"$INTERFACE_LIST_DIM_ARROW", Signed_16},
    {"$INTERFACE_VAL_DIM_SML", Signed_16},
    {"$INTERFACE_VAL_DIM_MID", Signed_16},
    {"$INTERFACE_TITLE_DIM_SML", Signed_16},
    {"$INTERFACE_NUM_BIG", Signed_16},
    {"$INTERFACE_TITLE_FONT_NAME", String},
    {"$INTERFACE_TITLE_FONT_WEIGHT", String},
    {"$INTERFACE_TITLE_FONT_SCALE", Signed_16},
    {"$INTERFACE_TOOL_FONT_NAME", String},
    {"$INTERFACE_TOOL_FONT_WEIGHT", String},
    {"$INTERFACE_TOOL_FONT_SCALE", Signed_16},
};

struct Dimension {
    const char* name;
    short pixels;
};

constexpr Dimension dimensions[] = {
    {"$INTERFACE_SPACE_DIM", 4},
    {"$INTERFACE_BORDER_DIM", 2},
    {"$INTERFACE_CURSOR_DIM", 16},
    {"$INTERFACE_BUTTON_DIM_SML", 20},
    {"$INTERFACE_BUTTON_DIM_BIG", 26},
    {"$INTERFACE_LIST_DIM_SML", 24},
    {"$INTERFACE_LIST_DIM_ARROW", 16},
    {"$INTERFACE_VAL_DIM_SML", 16},
    {"$INTERFACE_VAL_DIM_MID", 20},
    {"$INTERFACE_TITLE_DIM_SML", 20},
    {"$INTERFACE_NUM_BIG", 60},
    {"$INTERFACE_TITLE_FONT_SCALE", 9},
    {"$INTERFACE_TOOL_FONT_SCALE", 9},
};

char no_text[] = "";
char title_weight[] = "bold";
char tables[] = "*.csv";
char all_files[] = "*";

}

std::span<const Standard_Variable> Standard_Variables()
{
    return variables;
}

void Standard_Values_Set()
{
    for (const auto& [name, pixels] : dimensions)
        Variable<short>(name) = pixels;
    // A panel's test for a scroll slider takes SPACE off its height, its layout the frame width + 2: equal, so that a
    // panel of exactly the height it asked for needs no slider.
    BORDER = Variable<short>("$INTERFACE_BORDER_DIM");
    SPACE = static_cast<short>(BORDER + 2);
    for (const char* name : {"$INTERFACE_TITLE_FONT_NAME", "$INTERFACE_TOOL_FONT_NAME", "$INTERFACE_TOOL_FONT_WEIGHT",
             "$DEFAULT_FILE_PATH"})
        String_Variable(name) = no_text;
    String_Variable("$INTERFACE_TITLE_FONT_WEIGHT") = title_weight;
    String_Variable("$FILE_EXTENSION_EXCEL") = tables;
    String_Variable("$FILE_EXTENSION_ALL") = all_files;
    Variable<unsigned short>("$GLI_HISTO_BINS_MAX") = 4352;
}

}
