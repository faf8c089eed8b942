#include "workbench/document/label_map.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Outcome {
    int code;
    QString output;
    QString errors;
};

Outcome workbench(const QStringList& arguments, const QString& scale = QStringLiteral("1"))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", scale);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(VETRA_WORKBENCH, arguments);
    EXPECT_TRUE(program.waitForFinished(300000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

class Tour : public ::testing::Test {
protected:
    QString image(std::array<int, 3> size)
    {
        auto values = document::LabelMap::create({.size = size, .spacing = {1, 1, 3}});
        unsigned next = 0;
        for (auto& value : values->tags())
            value = static_cast<std::uint8_t>(next++ * 7 % 253);
        const QString path = folder.filePath("image.nii");
        EXPECT_FALSE(document::save_labels(path.toStdString(), *values));
        return path;
    }

    QTemporaryDir folder;
};

}

TEST_F(Tour, LeavesPicturesAndLabelsAndEndsWell)
{
    const QString out = folder.filePath("out/deep");
    const Outcome tour = workbench({"--tour", out, image({60, 50, 7})});
    EXPECT_EQ(tour.code, 0) << tour.errors.toStdString();

    const QStringList lines = tour.output.split('\n', Qt::SkipEmptyParts);
    const QStringList pictures = QDir(out).entryList({"*.png"}, QDir::Files, QDir::Name);
    ASSERT_EQ(lines.size(), 25) << tour.output.toStdString();
    ASSERT_EQ(pictures.size(), 25);
    EXPECT_EQ(lines.front(), "01 open: image.nii, 60 x 50 x 7");
    EXPECT_EQ(pictures.front(), "01-open.png");
    for (const QString& picture : pictures)
        EXPECT_GE(QImage(QDir(out).filePath(picture)).width(), 800) << picture.toStdString();
    EXPECT_EQ(pictures.back(), "25-update.png");
    EXPECT_GT(QFileInfo(QDir(out).filePath("histogram.csv")).size(), 1000);

    const auto labels = document::load_labels(
        QDir(out).filePath("labels.nii.gz").toStdString(), {.size = {60, 50, 7}, .spacing = {1, 1, 3}});
    ASSERT_TRUE(labels) << labels.failure().message;
    EXPECT_TRUE(std::ranges::count(labels->tags(), 3) > 0);
}

TEST_F(Tour, EndsWellAtOtherScales)
{
    const QString file = image({60, 50, 7});
    for (const QString& scale : {QStringLiteral("1.5"), QStringLiteral("2")}) {
        const Outcome tour = workbench({"--tour", folder.filePath("out"), file}, scale);
        EXPECT_EQ(tour.code, 0) << scale.toStdString() << ": " << tour.errors.toStdString();
    }
}

TEST_F(Tour, ManagesASinglePicture)
{
    const Outcome tour = workbench({"--tour", folder.filePath("out"), image({200, 100, 1})});
    EXPECT_EQ(tour.code, 0) << tour.errors.toStdString();
}

TEST_F(Tour, ReplacesTheLabelsOfTheLastTour)
{
    const QString file = image({60, 50, 7});
    EXPECT_EQ(workbench({"--tour", folder.filePath("out"), file}).code, 0);
    EXPECT_EQ(workbench({"--tour", folder.filePath("out"), file}).code, 0);
}

TEST_F(Tour, AnUnreadableFileEndsItWithAMessage)
{
    QFile file(folder.filePath("broken.nii"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not an image");
    file.close();
    const Outcome tour = workbench({"--tour", folder.filePath("out"), file.fileName()});
    EXPECT_EQ(tour.code, 1);
    EXPECT_TRUE(tour.errors.contains("\"open\"")) << tour.errors.toStdString();
    EXPECT_TRUE(tour.errors.contains("broken.nii")) << tour.errors.toStdString();
    EXPECT_FALSE(QFile::exists(folder.filePath("out/02-choose-tag.png")));
}

TEST_F(Tour, AFolderThatCannotBeMadeEndsItWithAMessage)
{
    const QString file = image({20, 20, 2});
    const Outcome tour = workbench({"--tour", file + "/below", file});
    EXPECT_EQ(tour.code, 1);
    EXPECT_TRUE(tour.errors.contains("below")) << tour.errors.toStdString();
}

TEST_F(Tour, LabelsThatCannotBeWrittenEndItInTheirStep)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath("out/labels.nii.gz/inside")));
    const Outcome tour = workbench({"--tour", folder.filePath("out"), image({20, 20, 2})});
    EXPECT_EQ(tour.code, 1);
    EXPECT_TRUE(tour.errors.contains("\"save\"")) << tour.errors.toStdString();
}

TEST(CommandLine, HelpEndsWell)
{
    const Outcome help = workbench({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.output.contains("--tour"));
}

TEST(CommandLine, WrongUsageIsTwo)
{
    EXPECT_EQ(workbench({"--no-such-option"}).code, 2);
    const Outcome without = workbench({"--tour"});
    EXPECT_EQ(without.code, 2);
    EXPECT_TRUE(without.errors.contains("--tour")) << without.errors.toStdString();
}
