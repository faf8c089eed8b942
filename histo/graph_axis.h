#pragma once

namespace histo {

/// One direction of the graph window: which part of the data range is seen on how many pixels.
///
/// Data are grey values or counts, in float as the numbers that are shown; positions are pixels of the window.
struct Graph_Axis {
    float origin = 0;     ///< data at the first pixel of the plot
    float scale = 1;      ///< data per pixel
    float full_scale = 1; ///< the scale at which everything is seen
    float full_min = 0;   ///< everything: the data range with room on both sides
    float full_max = 0;
    int start = 0; ///< the plot's first pixel
    int size = 0;  ///< pixels of the plot

    float end() const { return origin + static_cast<float>(size) * scale; }
    /// Whether values have places: not before a range was taken, nor with a scale that is 0 or less.
    bool is_usable() const;

    /// Where a value stands, pixels; may lie far outside.
    double pixel_of(double value) const;

    /// Takes the data range, with room of a share of it on both sides, and the plot's pixels. Nothing else changes.
    void set_range(float lowest, float highest, float room, int first_pixel, int pixels);

    /// Shows everything.
    void show_all();

    /// Keeps what is shown within everything.
    void keep_within();

    /// Shows the part between two pixels of the plot. They must differ.
    void zoom_to(int low, int high);

    /// Multiplies the scale, up to everything; the value at a pixel stays where it is.
    void zoom_at(int pixel, float factor);

    /// Moves what is shown by so many data.
    void move(float data);

    /// Divides the scale, up to everything.
    void magnify(float factor);

private:
    void clamp_origin();
};

}
