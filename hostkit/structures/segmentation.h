#pragma once

#include "host/gadgets.h"
#include "host/structures.h"

#include <span>

/// The storage behind the tag, marker and brush variables, for a host that has no arrays of its own.
///
/// The writers here change the variables only; whoever calls them sends the change with Fct_Update.
namespace hostkit {

constexpr unsigned short most_tags = 256;
constexpr unsigned short most_markers = 64;
constexpr unsigned short most_brushes = 8;
constexpr unsigned short largest_brush = 181; ///< the square of a larger radius leaves 16 bits

/// Puts the arrays into the variables with their usual contents: 16 tags in distinct colours, unnamed, enabled,
/// selected and unlocked; 8 markers; brushes of radius 1, 2, 4, 8 and 12. Names that were there are freed.
STRUCTURES_API void Segmentation_Reset();

STRUCTURES_API Colors Tag_Color(unsigned tag);
STRUCTURES_API void Tag_Color_Set(unsigned tag, Colors color);

/// The tag's name, or null.
STRUCTURES_API const char* Tag_Label(unsigned tag);

/// Names a tag; null or an empty text takes its name away. @return false when there is no memory
STRUCTURES_API bool Tag_Label_Set(unsigned tag, const char* label);

STRUCTURES_API bool Tag_Locked(unsigned tag);
STRUCTURES_API void Tag_Lock(unsigned tag, bool locked);

/// The same for markers; a colour goes into `"$MARKER_COLOR"`, whether it is shown into `"$MARKER_ENABLE"`.
STRUCTURES_API Colors Marker_Color(unsigned marker);
STRUCTURES_API void Marker_Color_Set(unsigned marker, Colors color);
STRUCTURES_API const char* Marker_Label(unsigned marker);
STRUCTURES_API bool Marker_Label_Set(unsigned marker, const char* label);
STRUCTURES_API bool Marker_Enabled(unsigned marker);
STRUCTURES_API void Marker_Enable(unsigned marker, bool enabled);

/// Sets the brushes' radii, at most 8 of at most 181 pixels, and makes room for their shapes, which the brush panel
/// fills after the next bit 23. @return false when there is no memory; the brushes are as before then
STRUCTURES_API bool Brushes_Set(std::span<const unsigned short> radii);

/// The shape of a brush: 2 R + 1 rows of as many bytes, R = `"$BRUSH_RADIUS"`; null when there is no such brush.
STRUCTURES_API const unsigned char* const* Brush_Shape(unsigned brush);

}
