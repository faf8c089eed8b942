#include "tests/workbench/shell/shell_test.h"

#include "hostkit/structures/registry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTest>

namespace test {

using namespace workbench;

Shell::Shell()
{
    window.resize(1024, 700);
    window.show();
    window.activateWindow();
    Driver::waitFor([this] { return window.isActiveWindow(); });
}

QString Shell::imageFile(const QString& name, std::array<int, 3> size)
{
    auto values = document::LabelMap::create({.size = size});
    unsigned next = 0;
    for (auto& value : values->tags())
        value = static_cast<std::uint8_t>(next++ % 251);
    const auto failure = document::save_labels(path(name).toStdString(), *values);
    EXPECT_FALSE(failure) << failure->message;
    return path(name);
}

QString Shell::file(const QString& name, const QByteArray& bytes)
{
    QFile target(path(name));
    EXPECT_TRUE(target.open(QIODevice::WriteOnly));
    EXPECT_EQ(target.write(bytes), bytes.size());
    return path(name);
}

void Shell::showImage(std::array<int, 3> size)
{
    document::Opened opened;
    opened.volume.geometry.size = size;
    const std::size_t voxels = opened.volume.geometry.voxels();
    opened.volume.pixels = document::PixelMemory::allocate(voxels);
    for (std::size_t i = 0; i < voxels; ++i)
        opened.volume.pixels.data()[i] = static_cast<std::byte>(i % 251);
    opened.volume.series = "made";
    opened.volume.frames.resize(static_cast<std::size_t>(size[2]));
    ASSERT_FALSE(session.adoptImage(std::move(opened)));
    Driver::settle();
}

void Shell::open(const QString& file)
{
    window.files().open({file});
    waitUntilIdle();
}

void Shell::paint()
{
    const QPoint from = window.view().positionOf(session.volume().width() / 2, session.volume().height() / 2).toPoint();
    driver.drag(window.view(), {from, from + QPoint(20, 10)});
}

void Shell::answer(QMessageBox::StandardButton button)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(widget);
        if (!box || !box->isVisible())
            continue;
        ASSERT_TRUE(box->button(button));
        QTest::mouseClick(box->button(button), Qt::LeftButton);
        return Driver::settle();
    }
    FAIL() << "no message box is open";
}

void Shell::waitForMessage()
{
    ASSERT_TRUE(Driver::waitFor([] { return !message().isEmpty(); }));
}

void Shell::waitUntilIdle()
{
    ASSERT_TRUE(Driver::waitFor([this] { return !window.files().busy(); }));
}

QPoint Shell::tagPlace(unsigned tag)
{
    const QSize size = window.panels().tagWidget().size();
    const int pitch =
        hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_SML") + hostkit::Variable<short>("$INTERFACE_BORDER_DIM");
    const int column = static_cast<int>(tag % 4);
    const int row = static_cast<int>(tag / 4);
    return {size.width() * (2 * column + 1) / 8, 4 + row * pitch + pitch / 2};
}

QPoint Shell::brushPlace(unsigned brush)
{
    const QSize size = window.panels().brushWidget().size();
    return {
        size.width() * static_cast<int>(2 * brush + 1) / static_cast<int>(2 * session.brushCount()), size.height() / 2};
}

void keepPicture(QWidget& widget, const QString& name)
{
    QDir().mkpath(QStringLiteral(VETRA_OUT));
    EXPECT_TRUE(widget.grab().save(QStringLiteral(VETRA_OUT "/%1.png").arg(name)));
}

}
