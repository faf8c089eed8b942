#pragma once

#include "frame/iterator_2d.h"

namespace histo {

/// Goes through the frames of a window.
class Frame_Iterator : private frame::Iterator_2D {
public:
    using frame::Iterator_2D::abandon;
    using frame::Iterator_2D::Iterator_2D;
    using frame::Iterator_2D::opened;
    using frame::Iterator_2D::Which;

    /// The next frame; null at the end, or when the iterator could not be opened.
    Strato_2D_Frame* next()
    {
        // What histograms are made of are frames.
        return static_cast<Strato_2D_Frame*>(frame::Iterator_2D::next());
    }
};

}
