#pragma once

#include "hostkit/gadgets/paint.h"

#include <array>

/// What sliders and valuators draw along their tracks. Positions are counted in pixels from the left or lower end.
namespace hostkit {

bool is_vertical(const Tools& slider);
int track_length(const Tools& slider);

/// A part of the track, over the slider's whole breadth.
Area along(const Tools& slider, int from, int length);

/// A text of at most five characters, ended by zeros.
using Short_Number = std::array<char, 8>;

/// A value in at most five characters: "1", "0.25", "0.031", "12.35", "1e+06"; empty when it cannot be told in so few.
GADGETS_API Short_Number short_number(float value);

/// Draws a value beside the thumb, on the side where there is more room; along a vertical track it reads upward. It is
/// left out where it does not fit or could not be read.
void draw_number(const Paint& paint, const Tools& valuator, int thumb_start, int thumb_end, float value);

}
