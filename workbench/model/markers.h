#pragma once

#include "hostkit/structures/broadcast.h"
#include "workbench/model/open_series.h"

#include <memory>
#include <optional>
#include <QColor>
#include <QObject>
#include <QPointF>
#include <QString>

namespace workbench {

class Session;

/// The point markers of the open image: setting, moving, naming and deleting them, each a step that can be undone.
///
/// A marker is set when it has a position. The current marker, names, colours and which are shown are the host's shared
/// variables, which panels change as well. There are markers from 0 to count() - 1, set or not; setting one beyond
/// makes more. Each series that is open has its own; these are the current one's. A series begins without any.
class Markers : public QObject {
    Q_OBJECT
public:
    /// The session must outlive it, and have made the host afresh.
    explicit Markers(Session& session);

    unsigned count() const;
    unsigned current() const;
    void setCurrent(unsigned marker); ///< ignored when there is no such marker

    const document::Marker& at(unsigned marker) const { return table_.entry(marker); }
    QString name(unsigned marker) const;  ///< as the user wrote it; may be empty
    QString title(unsigned marker) const; ///< never empty: the name, or "Marker 3"
    QColor colour(unsigned marker) const;
    bool isSet(unsigned marker) const { return at(marker).position.has_value(); }

    /// Where a marker lies: in pixels, the first one's centre at (0.5, 0.5), and the frame nearest to it, -1 or
    /// frameCount() for beyond the image. Nothing when it is not set.
    struct Place {
        QPointF pixel;
        int frame;
    };
    std::optional<Place> place(unsigned marker) const { return placeOf(at(marker)); }

    /// Makes a marker the current one and shows its frame. Without effect when there is no such marker.
    void show(unsigned marker);
    /// The same with the next set one, round and round. @param way 1, or -1 for the one before @return whether any is
    /// set
    bool showNext(int way);

    // ------------------------------------------------------------------------------------------- setting and moving

    /// Sets the current marker, or when it is set the first that is not, at a place of the shown frame, and takes hold
    /// of it. Returns why not, or an empty text.
    QString beginSetting(QPointF pixel);
    void beginMoving(unsigned marker); ///< takes hold of one that is set, and makes it the current one
    void moveTo(QPointF pixel);        ///< what is held, within its frame; without effect when nothing is
    void endMoving();                  ///< becomes a step, unless nothing changed
    void cancelMoving();               ///< takes it back
    bool isMoving() const { return held_.has_value(); }

    // -------------------------------------------------------------------------------------- steps that can be undone

    /// Ignored when there is no such marker or nothing changes.
    void remove(unsigned marker);                       ///< also its name and colour
    void setName(unsigned marker, const QString& name); ///< an empty one takes the name away
    void setColour(unsigned marker, const QColor& colour);
    void setShown(unsigned marker, bool shown);

    // --------------------------------------------------------------------------------------------------------- files

    struct Snapshot {
        document::MarkerList rows;
        MarkerTable::State state; ///< these two for markSaved
        std::weak_ptr<OpenSeries> series;
    };
    Snapshot snapshot() const;

    bool isModified() const { return table_.isModified(); }
    QString path() const { return path_; } ///< that they were saved to or loaded from; may be empty

    /// Makes markers that were loaded from `path` the image's own, as one step that can be undone. Only when there is
    /// an image. A file that is another series' keeps belonging to that: path() is empty then.
    /// @return how many of them lie beyond the image
    int adopt(const document::MarkerList& markers, const QString& path);

    /// What was taken is in the file `path` now. Without effect when it belongs to an image that is no longer open.
    void markSaved(const QString& path, const Snapshot& saved);

    /// Puts the markers of another series in their place; steps go on from there.
    void replace(const MarkerSheet& sheet);
    /// What replace() brings back.
    MarkerSheet sheet() const { return {table_.sheet(), path_, current()}; }

signals:
    void changed(); ///< positions, names, colours, count() or which are shown
    void currentChanged(unsigned marker);
    void savedChanged(); ///< path() or isModified()

private:
    friend class MarkerCommand;
    using State = MarkerTable::State;

    struct Held {
        unsigned marker;
        State before;
        QString text; // of the step
    };

    void hostChanged(unsigned long long flags);
    void pushHostChanges();
    void push(const QString& text, const State& after);
    void put(const State& state);
    void tellOf(const MarkerTable::Changes& changes);
    void goToChange(const State& before, const State& after);
    std::optional<unsigned> unset() const;
    std::optional<Place> placeOf(const document::Marker& entry) const;
    document::Marker moved(unsigned marker, QPointF pixel, double frame) const;
    double depth(unsigned marker) const;
    static QString titleOf(unsigned marker, const document::Marker& entry);
    static QString stepText(unsigned marker, const document::Marker& before, const document::Marker& after);

    Session& session_;
    MarkerTable table_;
    std::optional<Held> held_;
    QString path_;
    hostkit::Subscription updates_;
};

}
