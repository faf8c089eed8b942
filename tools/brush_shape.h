#pragma once

/// The shapes that brushes paint.
namespace tools {

/// The square of a radius in 16 bits: a radius of 182 and more wraps, and its disc may be empty.
constexpr short radius_squared(unsigned short radius)
{
    return static_cast<short>(radius * radius);
}

/// Fills a shape grid with an open disc: the points nearer to the centre than `size`; for 0 and 1 the centre alone.
///
/// @param rows  2 * half_size + 1 rows of as many bytes, which become 1 inside the disc and 0 outside; a disc that is
///              wider is cut
/// @param half_size  distance of the grid's centre from its edges, pixels
/// @param size  radius of the disc, pixels
void fill_brush_shape(unsigned char* const* rows, int half_size, unsigned short size);

/// Draws a disc, its boundary included, into the middle of a button's picture.
///
/// @param pixels  width * height pixels, row by row
/// @param limit   square of the radius, in picture pixels
void paint_disc(unsigned* pixels, int width, int height, short limit, unsigned color);

/// Blackens the outline of the disc in a button's four pictures.
///
/// The disc is where pictures 2 and 4 agree; its outline is what touches it from outside.
///
/// @param pictures  pictures 1 to 4, width * height pixels each
/// @param margin_x  distance of the disc's square from the picture's left and right edge; likewise margin_y
void blacken_outline(unsigned* const (&pictures)[4], int width, int height, int margin_x, int margin_y);

}
