#pragma once

#include "host/gadgets.h"

/// What panels draw with, into Y_DC.
namespace frame {

/// Something selected into the drawing context for as long as this lives; deleted afterwards.
class Selected {
public:
    explicit Selected(HGDIOBJ object) : object_(object), before_(SelectObject(Y_DC, object)) {}
    ~Selected()
    {
        SelectObject(Y_DC, before_);
        DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HGDIOBJ object_;
    HGDIOBJ before_;
};

/// What is drawn while this lives is taken away by being drawn again.
class Xor_Drawing {
public:
    Xor_Drawing() : before_(SetROP2(Y_DC, R2_XORPEN)) {}
    ~Xor_Drawing() { SetROP2(Y_DC, before_ ? before_ : R2_COPYPEN); }
    Xor_Drawing(const Xor_Drawing&) = delete;
    Xor_Drawing& operator=(const Xor_Drawing&) = delete;

private:
    int before_;
};

/// Nothing leaves a rectangle of the window while this lives.
class Clip {
public:
    Clip(int x, int y, int width, int height) : saved_(SaveDC(Y_DC))
    {
        // The row of the larger device coordinate, the lower one, is left out.
        IntersectClipRect(Y_DC, x, y + height - 1, x + width, y - 1);
    }
    explicit Clip(const Tools& widget) : Clip(widget.x, widget.y, widget.width, widget.height) {}
    ~Clip() { RestoreDC(Y_DC, saved_); }
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;

private:
    int saved_;
};

}
