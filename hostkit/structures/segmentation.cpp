#include "hostkit/structures/segmentation.h"

#include "hostkit/structures/registry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <vector>

namespace {

using namespace hostkit;

// Panels keep the addresses, so the arrays are there from start to end.
unsigned short tag_red[most_tags];
unsigned short tag_green[most_tags];
unsigned short tag_blue[most_tags];
char* tag_label[most_tags];
unsigned char tag_enable[most_tags];
unsigned char tag_select[most_tags];
unsigned char tag_lock[most_tags];

char* marker_label[most_markers];
unsigned marker_color[most_markers];
unsigned char marker_enable[most_markers];

unsigned short brush_size[most_brushes];
unsigned char** brush_rows[most_brushes];

struct Brush_Grids {
    std::vector<unsigned char> bytes;
    std::vector<unsigned char*> rows;
} grids;

// Told apart side by side, by hue and by lightness, on a grey image as well as on a dark panel.
constexpr Colors palette[] = {{0xaa, 0xaa, 0xaa}, {0xe6, 0x4b, 0x3c}, {0x3c, 0xb4, 0x5a}, {0x46, 0x8c, 0xf0},
    {0xf5, 0xc8, 0x32}, {0xaf, 0x5a, 0xdc}, {0x32, 0xc8, 0xc8}, {0xf0, 0x87, 0x28}, {0xf0, 0x5a, 0xaa},
    {0xa0, 0xd2, 0x3c}, {0x5a, 0x5a, 0xc8}, {0x8c, 0xe6, 0xc8}, {0xb4, 0x78, 0x50}, {0xfa, 0xb4, 0xb4},
    {0xbe, 0xb4, 0xf5}, {0x78, 0x96, 0x32}};

unsigned short widened(unsigned char channel)
{
    return static_cast<unsigned short>(channel << 8);
}

void free_labels(std::span<char*> labels)
{
    for (char*& label : labels) {
        std::free(label);
        label = nullptr;
    }
}

bool set_label(char*& label, const char* text)
{
    char* copy = text && *text ? strdup(text) : nullptr;
    if (!copy && text && *text)
        return false;
    std::free(label);
    label = copy;
    return true;
}

void reset_tags()
{
    free_labels(tag_label);
    for (unsigned tag = 0; tag < most_tags; ++tag)
        Tag_Color_Set(tag, tag == 0 ? palette[0] : palette[1 + (tag - 1) % (std::size(palette) - 1)]);
    std::fill(std::begin(tag_enable), std::end(tag_enable), static_cast<unsigned char>(1));
    std::fill(std::begin(tag_select), std::end(tag_select), static_cast<unsigned char>(1));
    std::fill(std::begin(tag_lock), std::end(tag_lock), static_cast<unsigned char>(0));

    Variable<unsigned short>("$TAG_NB") = 16;
    Variable<unsigned short>("$TAG_CUR") = 0;
    Array_Variable<unsigned short>("$TAG_RED") = tag_red;
    Array_Variable<unsigned short>("$TAG_GRN") = tag_green;
    Array_Variable<unsigned short>("$TAG_BLU") = tag_blue;
    Array_Variable<char*>("$TAG_LABEL") = tag_label;
    Array_Variable<unsigned char>("$TAG_ENABLE") = tag_enable;
    Array_Variable<unsigned char>("$TAG_SELECT") = tag_select;
    Array_Variable<unsigned char>("$TAG_LOCK") = tag_lock;
}

void reset_markers()
{
    free_labels(marker_label);
    for (unsigned marker = 0; marker < most_markers; ++marker)
        marker_color[marker] = palette[1 + marker % (std::size(palette) - 1)].get();
    std::fill(std::begin(marker_enable), std::end(marker_enable), static_cast<unsigned char>(1));

    Variable<unsigned short>("$MARKER_NB") = 8;
    Variable<unsigned short>("$MARKER_CUR") = 0;
    Array_Variable<char*>("$MARKER_LABEL") = marker_label;
    Array_Variable<unsigned>("$MARKER_COLOR") = marker_color;
    Array_Variable<unsigned char>("$MARKER_ENABLE") = marker_enable;
}

void count_arrays()
{
    for (const char* name :
        {"$TAG_RED", "$TAG_GRN", "$TAG_BLU", "$TAG_LABEL", "$TAG_ENABLE", "$TAG_SELECT", "$TAG_LOCK"})
        Variable_Count_Set(name, most_tags);
    for (const char* name : {"$MARKER_LABEL", "$MARKER_COLOR", "$MARKER_ENABLE"})
        Variable_Count_Set(name, most_markers);
    for (const char* name : {"$BRUSH_SIZE", "$BRUSH_PT"})
        Variable_Count_Set(name, most_brushes);
}

// Shapes of `count` brushes, all rows empty.
Brush_Grids make_grids(size_t count, size_t radius)
{
    const size_t side = 2 * radius + 1;
    Brush_Grids made{std::vector<unsigned char>(count * side * side), std::vector<unsigned char*>(count * side)};
    for (size_t row = 0; row < made.rows.size(); ++row)
        made.rows[row] = made.bytes.data() + row * side;
    return made;
}

}

namespace hostkit {

void Segmentation_Reset()
{
    constexpr unsigned short usual_radii[] = {1, 2, 4, 8, 12};
    reset_tags();
    reset_markers();
    Brushes_Set(usual_radii);
    Variable<unsigned short>("$BRUSH_CUR") = 0;
    count_arrays();
}

Colors Tag_Color(unsigned tag)
{
    return {static_cast<unsigned char>(tag_red[tag] >> 8), static_cast<unsigned char>(tag_green[tag] >> 8),
        static_cast<unsigned char>(tag_blue[tag] >> 8)};
}

void Tag_Color_Set(unsigned tag, Colors color)
{
    tag_red[tag] = widened(color.red);
    tag_green[tag] = widened(color.green);
    tag_blue[tag] = widened(color.blue);
}

const char* Tag_Label(unsigned tag)
{
    return tag_label[tag];
}

bool Tag_Label_Set(unsigned tag, const char* label)
{
    return set_label(tag_label[tag], label);
}

bool Tag_Locked(unsigned tag)
{
    return tag_lock[tag] != 0;
}

void Tag_Lock(unsigned tag, bool locked)
{
    tag_lock[tag] = locked;
}

Colors Marker_Color(unsigned marker)
{
    const unsigned word = marker_color[marker];
    return {static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8),
        static_cast<unsigned char>(word >> 16)};
}

void Marker_Color_Set(unsigned marker, Colors color)
{
    marker_color[marker] = color.get();
}

const char* Marker_Label(unsigned marker)
{
    return marker_label[marker];
}

bool Marker_Label_Set(unsigned marker, const char* label)
{
    return set_label(marker_label[marker], label);
}

bool Marker_Enabled(unsigned marker)
{
    return marker_enable[marker] != 0;
}

void Marker_Enable(unsigned marker, bool enabled)
{
    marker_enable[marker] = enabled;
}

bool Brushes_Set(std::span<const unsigned short> radii)
{
    const size_t count = std::min<size_t>(radii.size(), most_brushes);
    unsigned short radius = 1;
    for (size_t brush = 0; brush < count; ++brush)
        radius = std::max(radius, std::min(radii[brush], largest_brush));
    try {
        grids = make_grids(count, radius);
    } catch (const std::bad_alloc&) {
        return false;
    }
    for (size_t brush = 0; brush < count; ++brush) {
        brush_size[brush] = std::min(radii[brush], largest_brush);
        brush_rows[brush] = grids.rows.data() + brush * (2u * radius + 1u);
    }
    Variable<unsigned short>("$BRUSH_NB") = static_cast<unsigned short>(count);
    Variable<unsigned short>("$BRUSH_RADIUS") = radius;
    Array_Variable<unsigned short>("$BRUSH_SIZE") = brush_size;
    Array_Variable<unsigned char**>("$BRUSH_PT") = brush_rows;
    return true;
}

const unsigned char* const* Brush_Shape(unsigned brush)
{
    return brush < Variable<unsigned short>("$BRUSH_NB") ? brush_rows[brush] : nullptr;
}

}
