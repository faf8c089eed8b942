#include "host/gadgets.h"
#include "hostkit/structures/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using namespace hostkit;

namespace {

void* value(const char* name)
{
    return Fct_Variable_Value(name, nullptr, nullptr, nullptr);
}

void* address(const char* name, char flag = 0)
{
    return Fct_Variable_Get(name, nullptr, nullptr, nullptr, flag);
}

}

TEST(Registry, HasEveryVariableThatPanelsUse)
{
    Registry_Reset();
    const auto names = Variable_Names();
    for (const char* name :
        {"$TAG_NB", "$TAG_CUR", "$TAG_RED", "$TAG_GRN", "$TAG_BLU", "$TAG_LABEL", "$TAG_ENABLE", "$TAG_SELECT",
            "$TAG_LOCK", "$MARKER_NB", "$MARKER_CUR", "$MARKER_LABEL", "$MARKER_COLOR", "$MARKER_ENABLE", "$BRUSH_NB",
            "$BRUSH_CUR", "$BRUSH_SIZE", "$BRUSH_RADIUS", "$BRUSH_PT", "$WINDOW_CUR", "$WINDOW_NB", "$FRAME_CUR",
            "$FRAME_OVR", "$MOUSE_FRM", "$DB_1D_ROOT_PT", "$DB_2D_ROOT_PT", "$DB_3D_ROOT_PT", "$DB_2D_FILE_NB",
            "$DB_2D_FILE_PT", "$GLI_COLOR_COMPONENT", "$SELECT_GLI_MIN", "$SELECT_GLI_MAX", "$GLI_HISTO_BINS_MAX",
            "$GLI_HISTO_BINS_NB", "$REGIONAL_SEPARATOR", "$DEFAULT_FILE_PATH", "$FILE_EXTENSION_ALL",
            "$FILE_EXTENSION_EXCEL", "$DEFAULT_ICON_PATH", "$INTERFACE_LOCK_FOCUS", "$INTERFACE_SPACE_DIM",
            "$INTERFACE_BORDER_DIM", "$INTERFACE_CURSOR_DIM", "$INTERFACE_BUTTON_DIM_SML", "$INTERFACE_BUTTON_DIM_BIG",
            "$INTERFACE_LIST_DIM_SML", "$INTERFACE_LIST_DIM_ARROW", "$INTERFACE_VAL_DIM_SML", "$INTERFACE_VAL_DIM_MID",
            "$INTERFACE_TITLE_DIM_SML", "$INTERFACE_NUM_BIG", "$INTERFACE_TITLE_FONT_NAME",
            "$INTERFACE_TITLE_FONT_WEIGHT", "$INTERFACE_TITLE_FONT_SCALE", "$INTERFACE_TOOL_FONT_NAME",
            "$INTERFACE_TOOL_FONT_WEIGHT", "$INTERFACE_TOOL_FONT_SCALE"}) {
        EXPECT_TRUE(std::binary_search(names.begin(), names.end(), name)) << name;
        EXPECT_NE(address(name), nullptr) << name;
    }
}

TEST(Registry, AnUnknownVariableIsNull)
{
    EXPECT_EQ(value("$NO_SUCH_THING"), nullptr);
    EXPECT_EQ(address("$NO_SUCH_THING"), nullptr);
    EXPECT_EQ(value(nullptr), nullptr);
    EXPECT_EQ(address(nullptr), nullptr);
}

TEST(Registry, FlagOneCreatesAVariableOfZero)
{
    auto* created = static_cast<int*>(address("$MADE_ON_DEMAND", 1));
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(*created, 0);
    EXPECT_EQ(address("$MADE_ON_DEMAND"), created);
}

TEST(Registry, ScalarsAreWidenedBySign)
{
    Variable<unsigned short>("$TAG_NB") = 65535;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(value("$TAG_NB")), 65535u);
    Variable<short>("$INTERFACE_SPACE_DIM") = -3;
    EXPECT_EQ(reinterpret_cast<intptr_t>(value("$INTERFACE_SPACE_DIM")), -3);
    Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = 255;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(value("$INTERFACE_LOCK_FOCUS")), 255u);
    Registry_Reset();
}

TEST(Registry, ArraysAreReachedByValueAndByAddress)
{
    unsigned short reds[4] = {1, 2, 3, 4};
    Array_Variable<unsigned short>("$TAG_RED") = reds;
    EXPECT_EQ(value("$TAG_RED"), reds);
    EXPECT_EQ(*static_cast<unsigned short**>(address("$TAG_RED")), reds);
    Registry_Reset();
    EXPECT_EQ(value("$TAG_RED"), nullptr);
}

TEST(Registry, ThePointerInAFrameIsFourFloatsInPlace)
{
    auto* floats = static_cast<float*>(address("$MOUSE_FRM"));
    floats[1] = 12.5f;
    floats[3] = 2;
    EXPECT_EQ(value("$MOUSE_FRM"), floats);
    EXPECT_EQ(floats[1], 12.5f);
    Registry_Reset();
    EXPECT_EQ(floats[1], 0);
    EXPECT_EQ(floats[3], 0);
}

TEST(Registry, CellsNeverMove)
{
    void* before = address("$TAG_NB");
    for (int i = 0; i < 2000; ++i)
        Variable<int>("$FILLER_" + std::to_string(i)) = i;
    Registry_Reset();
    EXPECT_EQ(address("$TAG_NB"), before);
    EXPECT_EQ(Variable<int>("$FILLER_1999"), 0);
}

TEST(Registry, DescribesAVariableToWhomeverAsks)
{
    int type = 0;
    unsigned short count = 0;
    int (*callback)(void) = [] { return 1; };
    Variable_Count_Set("$TAG_LABEL", 256);
    Fct_Variable_Value("$TAG_LABEL", &type, &count, &callback);
    EXPECT_EQ(type, static_cast<int>(Variable_Type::Array));
    EXPECT_EQ(count, 256);
    EXPECT_EQ(callback, nullptr);
    Fct_Variable_Get("$TAG_NB", &type, &count, nullptr, 0);
    EXPECT_EQ(type, static_cast<int>(Variable_Type::Unsigned_16));
    EXPECT_EQ(count, 1);
}

TEST(Registry, RefusesAnotherTypeForAVariable)
{
    EXPECT_THROW(Variable<float>("$TAG_NB"), std::logic_error);
    EXPECT_THROW(Array_Variable<int>("$TAG_NB"), std::logic_error);
}

TEST(Registry, ResetGivesTheUsualDimensions)
{
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 99;
    Registry_Reset();
    EXPECT_EQ(Variable<short>("$INTERFACE_BUTTON_DIM_SML"), 20);
    EXPECT_EQ(Variable<short>("$INTERFACE_SPACE_DIM"), 4);
    EXPECT_EQ(Variable<unsigned short>("$GLI_HISTO_BINS_MAX"), 4352);
    EXPECT_EQ(BORDER, Variable<short>("$INTERFACE_BORDER_DIM"));
    EXPECT_EQ(SPACE, BORDER + 2);
}
