#include "workbench/tour/tour_steps.h"

#include "host/gadgets.h"
#include "hostkit/structures/registry.h"
#include "workbench/document/text.h"
#include "workbench/shell/main_window.h"
#include "workbench/shell/tool_panels.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace workbench {

namespace {

constexpr unsigned firstTag = 3;
constexpr unsigned secondTag = 6;
constexpr unsigned brush = 4;
constexpr int slices = 3;
const QString name = QStringLiteral("Lesion");

void require(bool condition, const QString& otherwise)
{
    if (condition)
        return;
    const QString message = Driver::openMessage();
    throw StepFailed(message.isEmpty() ? otherwise : message);
}

QString counted(std::size_t voxels)
{
    return QStringLiteral("%1 voxels").arg(voxels);
}

}

TourSteps::TourSteps(Session& session, MainWindow& window, QStringList paths, QString labelFile)
    : session_(session), window_(window), paths_(std::move(paths)), labelFile_(std::move(labelFile)), driver_(window)
{
    window_.show();
    window_.activateWindow();
    Driver::waitFor([this] { return window_.isActiveWindow(); });
}

// ------------------------------------------------------------------------------------------ where things are, and what

TourSteps::Tags TourSteps::tags() const
{
    const auto all = session_.labels().tags();
    return {all.begin(), all.end()};
}

std::size_t TourSteps::painted(unsigned tag) const
{
    const auto all = session_.labels().tags();
    return static_cast<std::size_t>(std::ranges::count(all, static_cast<std::uint8_t>(tag)));
}

std::size_t TourSteps::paintedOnFrame() const
{
    const auto frame = session_.labels().frame(session_.frame());
    return frame.size() - static_cast<std::size_t>(std::ranges::count(frame, std::uint8_t{0}));
}

// The panel's grid: four tags a row, tag 0 at the upper left, a scroll slider at the left when not all rows fit.
QPoint TourSteps::tagPlace(unsigned tag) const
{
    constexpr int columns = 4;
    const auto dimension = [](const char* variable) { return int{hostkit::Variable<short>(variable)}; };
    const QSize size = window_.panels().tagWidget().size();
    const int margin = dimension("$INTERFACE_BORDER_DIM") + 2;
    const int pitch = dimension("$INTERFACE_BUTTON_DIM_SML") + dimension("$INTERFACE_BORDER_DIM");
    const bool scrolls = static_cast<int>(session_.tagCount()) / columns * pitch > size.height() - 2 * SPACE;
    const int left = margin + (scrolls ? dimension("$INTERFACE_CURSOR_DIM") + dimension("$INTERFACE_SPACE_DIM") : 0);
    const int width = (size.width() - margin - left) / columns;
    const int row = static_cast<int>(tag) / columns;
    const int column = static_cast<int>(tag) % columns;
    return {left + column * width + width / 2, margin + row * pitch + pitch / 2};
}

QPoint TourSteps::brushPlace(unsigned number) const
{
    const QSize size = window_.panels().brushWidget().size();
    const int count = std::max(1, static_cast<int>(session_.brushCount()));
    return {size.width() * (2 * static_cast<int>(number) + 1) / (2 * count), size.height() / 2};
}

// A place in the shown frame, 0 to 1 along each side.
QPoint TourSteps::inView(double x, double y) const
{
    const auto& volume = session_.volume();
    return window_.view()
        .positionOf(static_cast<int>(x * (volume.width() - 1)), static_cast<int>(y * (volume.height() - 1)))
        .toPoint();
}

// A stroke along a circle around the middle; angles in turns.
std::vector<QPoint> TourSteps::arc(double radius, double from, double to) const
{
    constexpr int pieces = 16;
    std::vector<QPoint> places;
    for (int i = 0; i <= pieces; ++i) {
        const double angle = 2 * std::numbers::pi * (from + (to - from) * i / pieces);
        places.push_back(inView(0.5 + radius * std::cos(angle), 0.5 + radius * std::sin(angle)));
    }
    return places;
}

void TourSteps::clickTag(unsigned tag)
{
    driver_.click(window_.panels().tagWidget(), tagPlace(tag));
    require(session_.currentTag() == tag, QStringLiteral("the click on tag %1 did not make it current").arg(tag));
}

// ------------------------------------------------------------------------------------------------------------ the
// steps

QString TourSteps::open()
{
    window_.files().open(paths_);
    Driver::waitFor([this] { return !window_.files().busy(); });
    require(session_.hasImage(), QStringLiteral("%1 was not opened").arg(paths_.join(QStringLiteral(", "))));
    return QStringLiteral("%1, %2").arg(
        session_.imageName(), QString::fromStdString(document::size_text(session_.volume().geometry.size)));
}

QString TourSteps::chooseTag()
{
    clickTag(firstTag);
    return session_.tagTitle(firstTag);
}

QString TourSteps::rename()
{
    driver_.click(window_.panels().tagWidget(), tagPlace(firstTag), Qt::RightButton);
    require(window_.panels().editing(), QStringLiteral("the right press did not open the editor"));
    driver_.key(Qt::Key_Backspace); // the number that an unnamed tag shows
    driver_.type(name);
    driver_.key(Qt::Key_Return);
    require(session_.tagName(firstTag) == name,
        QStringLiteral("the name is \"%1\" instead of \"%2\"").arg(session_.tagName(firstTag), name));
    return QStringLiteral("tag %1 is \"%2\"").arg(firstTag).arg(name);
}

QString TourSteps::chooseBrush()
{
    driver_.click(window_.panels().brushWidget(), brushPlace(brush));
    require(session_.currentBrush() == brush, QStringLiteral("the click on brush %1 did not choose it").arg(brush));
    return QStringLiteral("radius %1").arg(session_.brushRadius());
}

QString TourSteps::paint()
{
    constexpr double radius = 0.16;
    const int count = std::min(slices, session_.frameCount());
    const int following = session_.frameCount() - 1 - session_.frame();
    if (following < count - 1)
        driver_.wheel(window_.view(), inView(0.5, 0.5), count - 1 - following);
    const int first = session_.frame();
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            driver_.wheel(window_.view(), inView(0.5, 0.5), -1);
        driver_.drag(window_.view(), arc(radius, 0.55, 0.95));
        require(paintedOnFrame() > 0, QStringLiteral("nothing was painted on slice %1").arg(session_.frame() + 1));
    }
    require(session_.frame() - first == count - 1, QStringLiteral("the wheel did not change the slice"));
    return QStringLiteral("%1 on %2 slices").arg(counted(painted(firstTag))).arg(count);
}

QString TourSteps::paintSecondTag()
{
    constexpr double radius = 0.24;
    clickTag(secondTag);
    driver_.drag(window_.view(), arc(radius, 0.1, 0.4));
    require(painted(secondTag) > 0, QStringLiteral("nothing was painted with tag %1").arg(secondTag));
    return QStringLiteral("%1 of %2").arg(counted(painted(secondTag)), session_.tagTitle(secondTag));
}

QString TourSteps::erase()
{
    constexpr double radius = 0.24;
    beforeErasing_ = tags();
    const std::size_t before = paintedOnFrame();
    driver_.drag(window_.view(), arc(radius, 0.2, 0.3), Qt::LeftButton, Qt::ShiftModifier);
    afterErasing_ = tags();
    require(paintedOnFrame() < before, QStringLiteral("nothing was erased"));
    return counted(before - paintedOnFrame());
}

QString TourSteps::undo()
{
    driver_.key(Qt::Key_Z, Qt::ControlModifier);
    require(tags() == beforeErasing_, QStringLiteral("the labels are not as they were before erasing"));
    return QStringLiteral("what was erased is there again");
}

QString TourSteps::redo()
{
    driver_.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    require(tags() == afterErasing_, QStringLiteral("the labels are not as they were after erasing"));
    return QStringLiteral("it is erased again");
}

void TourSteps::chooseAdapting()
{
    const auto& list = *window_.panels().propagation().findChild<QComboBox*>();
    driver_.click(list, list.rect().center());
    driver_.key(Qt::Key_End);
    driver_.key(Qt::Key_Return);
    require(session_.carryMode() == document::CarryMode::adapt, QStringLiteral("the list did not choose adapting"));
}

QString TourSteps::propagate()
{
    constexpr int wanted = 10;
    const int first = session_.frame();
    const int last = std::min(first + wanted, session_.frameCount() - 1);
    if (last == first)
        return QStringLiteral("no slice follows");
    const std::size_t before = painted(firstTag);
    chooseAdapting();
    driver_.key(Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier);
    Driver::waitFor([this] { return !window_.files().busy(); });
    require(session_.frame() == last, QStringLiteral("the tags were not carried to slice %1").arg(last + 1));
    require(paintedOnFrame() > 0, QStringLiteral("nothing is on slice %1").arg(last + 1));
    return QStringLiteral("%1 more on %2 slices").arg(counted(painted(firstTag) - before)).arg(last - first);
}

QString TourSteps::changeWindow()
{
    const document::Window before = session_.window();
    driver_.drag(window_.view(), {inView(0.5, 0.5), inView(0.45, 0.48), inView(0.4, 0.45)}, Qt::RightButton);
    const document::Window now = session_.window();
    require(now != before, QStringLiteral("the right drag did not change window and level"));
    return QStringLiteral("centre %1, width %2").arg(now.centre, 0, 'g', 4).arg(now.width, 0, 'g', 4);
}

QString TourSteps::zoom()
{
    constexpr int notches = 3;
    const double before = window_.view().zoom();
    driver_.wheel(window_.view(), inView(0.5, 0.5), notches, Qt::ControlModifier);
    require(window_.view().zoom() > before, QStringLiteral("the wheel did not zoom"));
    return QStringLiteral("%1 %").arg(std::lround(window_.view().zoom() * 100));
}

void TourSteps::writeIntoDialog(const QString& path)
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* edit = dialog ? dialog->findChild<QLineEdit*>() : nullptr;
    require(edit, QStringLiteral("no dialog asks for the file"));
    edit->setText(path);
    driver_.key(Qt::Key_Return);
}

QString TourSteps::save()
{
    const auto table = document::label_table_path(labelFile_.toStdString());
    QFile::remove(labelFile_);
    QFile::remove(table); // of the last tour
    driver_.key(Qt::Key_S, Qt::ControlModifier);
    writeIntoDialog(QFileInfo(labelFile_).absoluteFilePath());
    Driver::waitFor([this] { return !window_.files().busy(); });
    require(!session_.isModified(), QStringLiteral("%1 was not saved").arg(labelFile_));

    const auto read = document::load_labels(labelFile_.toStdString(), session_.volume().geometry);
    if (!read)
        throw StepFailed(QString::fromStdString(read.failure().message));
    require(std::ranges::equal(read->tags(), session_.labels().tags()),
        QStringLiteral("%1 does not hold what was painted").arg(labelFile_));
    const auto described = document::load_label_table(table);
    if (!described)
        throw StepFailed(QString::fromStdString(described.failure().message));
    require(std::ranges::count(*described, name.toStdString(), &document::LabelEntry::name) == 1,
        QStringLiteral("%1 does not hold the name").arg(QString::fromStdString(table.filename().string())));
    return QStringLiteral("%1, read back equal").arg(QFileInfo(labelFile_).fileName());
}

}
