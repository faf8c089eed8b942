#pragma once

#include "workbench/model/session.h"

#include <QImage>
#include <QRect>

namespace workbench {

/// The shown frame as a picture, one pixel each, with the colours of its labels.
class FramePicture {
public:
    /// Makes it anew: after another frame, image or window.
    void render(const Session& session);

    /// Lays the labels over a part of it: after a change of labels, colours or opacity.
    void blend(const Session& session, QRect part);
    void blend(const Session& session) { blend(session, grey_.rect()); }

    const QImage& image() const { return shown_; }

private:
    QImage grey_;  // without labels
    QImage shown_; // with them
};

}
