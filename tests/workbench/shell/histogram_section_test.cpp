#include "workbench/shell/histogram_section.h"

#include "histo/tool_histo.h"
#include "tests/workbench/session_fixture.h"
#include "tests/workbench/shell/shell_test.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <numeric>

using namespace workbench;

namespace {

class Histogram : public test::Shell {
protected:
    HistogramSection& section() { return window.panels().histogram(); }
    Tool_Histo& panel() { return section().histogram().panel(); }
    QWidget& panelWidget() { return *section().layout()->itemAt(1)->widget(); }
    QComboBox& frames() { return *section().findChildren<QComboBox*>().at(0); }
    QComboBox& component() { return *section().findChildren<QComboBox*>().at(1); }
    QSpinBox& first() { return *section().findChildren<QSpinBox*>().at(0); }
    QSpinBox& last() { return *section().findChildren<QSpinBox*>().at(1); }
    QPushButton& fit() { return *section().findChildren<QPushButton*>().at(0); }
    QPushButton& exportButton() { return *section().findChildren<QPushButton*>().at(1); }
    QLabel& result() { return *qobject_cast<QLabel*>(section().layout()->itemAt(3)->widget()); }

    void click(QWidget& widget) { driver.click(widget, middleOf(widget)); }

    // Opens the list with the mouse and takes an entry with the keys.
    void choose(QComboBox& box, int entry)
    {
        click(box);
        ASSERT_TRUE(Driver::waitFor([&] { return box.view()->isVisible(); }));
        box.view()->setCurrentIndex(box.model()->index(entry, 0));
        QTest::keyClick(box.view(), Qt::Key_Return);
        ASSERT_TRUE(Driver::waitFor([&] { return !box.view()->isVisible(); }));
        Driver::settle();
    }

    void type(QSpinBox& box, const QString& text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, Qt::Key_Return);
        Driver::settle();
    }

    unsigned long long pixelsCounted()
    {
        return std::accumulate(panel().histo->count, panel().histo->count + panel().histo->nb_bins, 0ull);
    }

    QImage shown() { return panelWidget().grab().toImage(); }

    void showPeaks()
    {
        ASSERT_FALSE(session.adoptImage(test::image_of_two_peaks()));
        Driver::settle();
    }

    void showColours()
    {
        document::Opened opened;
        opened.volume.type = document::PixelType::rgb;
        opened.volume.geometry.size = {64, 64, 1};
        opened.volume.pixels = document::PixelMemory::allocate(64 * 64 * 3);
        for (int i = 0; i < 64 * 64; ++i) {
            for (int part = 0; part < 3; ++part)
                opened.volume.pixels.data()[3 * i + part] = static_cast<std::byte>(40 + 70 * part + i % 60);
        }
        opened.volume.frames.resize(1);
        ASSERT_FALSE(session.adoptImage(std::move(opened)));
        Driver::settle();
    }

    static int count(const QImage& picture, QColor colour)
    {
        int found = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                found += picture.pixelColor(x, y) == colour;
        return found;
    }
};

}

TEST_F(Histogram, WithoutAnImageNothingCanBeDone)
{
    EXPECT_FALSE(fit().isEnabled());
    EXPECT_FALSE(exportButton().isEnabled());
    EXPECT_FALSE(frames().isEnabled());
    EXPECT_FALSE(component().isVisible());
    EXPECT_FALSE(result().isVisible());
    section().histogram().fit();
    window.files().exportHistogramTo(section().histogram(), path("a.csv"));
    EXPECT_FALSE(QFile::exists(path("a.csv")));
}

TEST_F(Histogram, AnImageIsShownAtOnce)
{
    const QImage before = shown();
    showImage();
    EXPECT_TRUE(fit().isEnabled());
    EXPECT_TRUE(frames().isEnabled());
    EXPECT_EQ(pixelsCounted(), 40u * 30 * 5);
    EXPECT_NE(shown(), before);
    EXPECT_GT(count(shown(), Qt::yellow), 50);
    EXPECT_FALSE(component().isVisible());
    EXPECT_FALSE(first().isVisible());
}

TEST_F(Histogram, TheShownSliceIsFollowed)
{
    showImage({40, 30, 5});
    const QImage all = shown();
    choose(frames(), 1);
    EXPECT_EQ(pixelsCounted(), 40u * 30);
    const QImage one = shown();
    EXPECT_NE(one, all);
    session.setFrame(4);
    Driver::settle();
    EXPECT_NE(shown(), one) << "another slice has another histogram";
    EXPECT_EQ(frames().currentIndex(), 1);
    choose(frames(), 0);
    EXPECT_EQ(shown(), all);
}

TEST_F(Histogram, ARangeIsGivenInTwoFields)
{
    showImage();
    choose(frames(), 2);
    ASSERT_TRUE(first().isVisible());
    EXPECT_EQ(first().value(), 3) << "the shown slice to begin with";
    EXPECT_EQ(last().value(), 3);
    const QImage one = shown();
    type(last(), "5");
    EXPECT_EQ(pixelsCounted(), 3u * 40 * 30);
    EXPECT_NE(shown(), one);
    QTest::keyClick(&first(), Qt::Key_Down);
    Driver::settle();
    EXPECT_EQ(pixelsCounted(), 4u * 40 * 30);
    type(first(), "1");
    EXPECT_EQ(frames().currentIndex(), 0) << "these are all";
    EXPECT_FALSE(first().isVisible());
}

TEST_F(Histogram, ARangeTurnedRoundIsTurnedBack)
{
    showImage();
    choose(frames(), 2);
    type(first(), "5");
    EXPECT_EQ(first().value(), 3);
    EXPECT_EQ(last().value(), 5);
    EXPECT_EQ(pixelsCounted(), 3u * 40 * 30);
}

TEST_F(Histogram, ASelectionMadeElsewhereIsTold)
{
    showImage();
    auto* const series = hostkit::Object_Variable<Strato_2D>("$DB_2D_ROOT_PT")->Child_Get_Pt(0)->Child_Get_Pt(0);
    for (const int z : {1, 3})
        series->Child_Get_Pt(z)->Flag_Set_Off(16, reinterpret_cast<void*>(4), 512);
    const QImage before = shown();
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    Driver::settle();
    EXPECT_EQ(frames().currentIndex(), -1);
    EXPECT_TRUE(frames().placeholderText().contains('3'));
    EXPECT_EQ(pixelsCounted(), 3u * 40 * 30);
    EXPECT_NE(shown(), before);
}

TEST_F(Histogram, TellsHowManySlicesOfTheShownSeriesItIsOf)
{
    open(imageFile("first.nii", {40, 30, 3}));
    open(imageFile("second.nii", {40, 30, 5}));
    const Strato_2D* const study = hostkit::Object_Variable<Strato_2D>("$DB_2D_ROOT_PT")->Child_Get_Pt(0);
    for (int series = 0; series < 2; ++series)
        for (int z = 0; z < 2; ++z)
            study->Child_Get_Pt(series)->Child_Get_Pt(z)->Flag_Set_On(80, reinterpret_cast<void*>(4), 512);
    for (int z = 2; z < 5; ++z)
        study->Child_Get_Pt(1)->Child_Get_Pt(z)->Flag_Set_Off(16, reinterpret_cast<void*>(4), 512);
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    Driver::settle();
    EXPECT_EQ(session.selection().count(), 4);
    EXPECT_EQ(frames().placeholderText(), "2 slices");
    EXPECT_EQ(pixelsCounted(), 2u * 40 * 30);
}

TEST_F(Histogram, ComponentsAreForColours)
{
    showColours();
    ASSERT_TRUE(component().isVisible());
    EXPECT_GT(count(shown(), Qt::yellow), 20);
    choose(component(), 1);
    EXPECT_EQ(panel().color_component, 1);
    EXPECT_GT(count(shown(), Qt::red), 20);
    EXPECT_EQ(count(shown(), Qt::yellow), 0);
    test::keepPicture(section(), "histogram-section-red");
    choose(component(), 3);
    EXPECT_GT(count(shown(), Qt::blue), 20);
    choose(component(), 0);
    showImage();
    EXPECT_FALSE(component().isVisible());
}

TEST_F(Histogram, FitTellsThePeaks)
{
    showPeaks();
    test::keepPicture(section(), "histogram-section-grey");
    EXPECT_FALSE(result().isVisible());
    click(fit());
    Driver::settle();
    ASSERT_TRUE(result().isVisible());
    const QString text = result().text();
    ASSERT_GE(panel().Peaks()->nb, 1);
    EXPECT_EQ(text.count(QStringLiteral("height")), panel().Peaks()->nb) << text.toStdString();
    EXPECT_TRUE(text.contains(QChar(0xB1)));
    test::keepPicture(section(), "histogram-section-fitted");
    showImage();
    EXPECT_NE(result().text(), text) << "peaks are found again in each histogram";
}

TEST_F(Histogram, ThresholdsAreBands)
{
    showPeaks();
    session.setTagColour(2, QColor(0, 0xC0, 0xFF));
    const QImage before = shown();
    session.setThresholds(2, Thresholds{60, 120});
    Driver::settle();
    ASSERT_EQ(panel().range_nb, 1);
    EXPECT_EQ(panel().range_tag[0], 2);
    const QImage band = shown();
    const QImage aboveTheBars = band.copy(0, 0, band.width(), band.height() / 4);
    EXPECT_GT(count(aboveTheBars, QColor(0, 0xC0, 0xFF)), 200) << "a checker up to the top";
    EXPECT_NE(band, before);
    test::keepPicture(section(), "histogram-section-thresholds");
    session.undoStack().undo();
    Driver::settle();
    EXPECT_EQ(panel().range_nb, 0);
    EXPECT_EQ(shown(), before);
}

TEST_F(Histogram, IsExported)
{
    showPeaks();
    click(fit());
    window.files().exportHistogramTo(section().histogram(), path("\u00e9.csv"));
    EXPECT_TRUE(message().isEmpty()) << message().toStdString();
    QFile table(path("\u00e9.csv"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    const QByteArray bytes = table.readAll();
    EXPECT_TRUE(bytes.startsWith("sep="));
    EXPECT_TRUE(bytes.contains("Gausian peaks"));
}

TEST_F(Histogram, AnExportThatFailsIsTold)
{
    showPeaks();
    window.files().exportHistogramTo(section().histogram(), path("nowhere/a.csv"));
    waitForMessage();
    EXPECT_TRUE(message().contains("nowhere")) << message().toStdString();
    answer(QMessageBox::Ok);
}

TEST_F(Histogram, DoesNotTakeTheImagesPlace)
{
    const QString image = imageFile("image.nii");
    open(image);
    QFile before(image);
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    const QByteArray bytes = before.readAll();
    window.files().exportHistogramTo(section().histogram(), image);
    waitForMessage();
    EXPECT_TRUE(message().contains("is the open image itself")) << message().toStdString();
    answer(QMessageBox::Ok);
    QFile after(image);
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(after.readAll(), bytes);
}

TEST_F(Histogram, TheZoomIsKeptWhateverTheSize)
{
    showPeaks();
    section().histogram().setZoom(0.25f);
    const int width = panelWidget().width();
    for (const int wider : {40, 80, 120}) { // several before anything else happens, as when a border is dragged
        panelWidget().resize(width + wider, panelWidget().height());
        EXPECT_NE(panelWidget().width(), width);
    }
    Driver::settle();
    EXPECT_EQ(panel().zoom.value, 0.25f);
    window.panels().layOut();
    Driver::settle();
    EXPECT_EQ(panel().zoom.value, 0.25f);
    window.resize(1300, 900);
    Driver::settle();
    EXPECT_EQ(panel().zoom.value, 0.25f);
}
