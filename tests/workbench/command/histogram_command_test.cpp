#include "histo/tool_histo.h"
#include "tests/workbench/command/vetra_process.h"
#include "tests/workbench/session_fixture.h"
#include "workbench/histogram/peak_table.h"

#include <QImage>

#include <limits>
#include <numeric>

using namespace test;
using document_test::bytes_of_file;

namespace {

class HistogramCommand : public test::SessionTest {
protected:
    QString file(const std::string& name) const { return QString::fromStdString((folder / name).string()); }

    QString volume(const std::vector<std::uint16_t>& values, std::array<int, 3> size, const std::string& name = "a.nii")
    {
        write_volume(folder / name, size, values);
        return file(name);
    }
    QString small() { return volume({10, 10, 11, 12, 12, 12}, {3, 1, 2}); }
    QString peaks() { return volume(two_peaks(), size_of_two_peaks); }

    QString floats(const std::vector<float>& values, const std::string& name = "f.nii")
    {
        document::Geometry geometry;
        geometry.size = {static_cast<int>(values.size()), 1, 1};
        document_test::write_image(folder / name, document::PixelType::f32, geometry, values.data());
        return file(name);
    }

    QString colours()
    {
        const std::vector<std::uint8_t> rgb{10, 20, 30, 200, 20, 0, 255, 255, 255, 0, 0, 0};
        document::Geometry geometry;
        geometry.size = {2, 2, 1};
        document_test::write_image(folder / "c.png", document::PixelType::u8, geometry, rgb.data(), 3);
        return file("c.png");
    }

    static std::vector<unsigned> counts(const nlohmann::json& object, const char* name = "count")
    {
        return object.at(name).get<std::vector<unsigned>>();
    }

    static int count_of(const QImage& picture, QColor colour)
    {
        int found = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                found += picture.pixelColor(x, y) == colour;
        return found;
    }

    static void expect_refused(const Outcome& outcome, int status, const std::string& message)
    {
        EXPECT_EQ(outcome.status, status) << outcome.errors;
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.errors.find(message), std::string::npos) << outcome.errors;
    }

    document_test::Folder folder;
};

using Counts = std::vector<unsigned>;

TEST_F(HistogramCommand, PrintsATable)
{
    const Outcome outcome = vetra({"histogram", small()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "\"a.nii\": 2 frames of 3 x 1\n"
                              "4 bins of 1 from 10\n"
                              "6 pixels; the largest count is 3 at 12.5\n"
                              "        from         count\n"
                              "          10             2  ##########################\n"
                              "          11             1  #############\n"
                              "          12             3  ########################################\n"
                              "          13             0\n");
}

TEST_F(HistogramCommand, TheTableIsInTheImagesOwnGreyValues)
{
    std::vector<float> values;
    for (const auto value : two_peaks())
        values.push_back(static_cast<float>(value) / 10000.f);
    const std::string table = vetra({"histogram", floats(values), "--fit"}).output;
    const auto object = vetra({"histogram", floats(values), "--json"}).json();
    EXPECT_EQ(object["x_unit"].get<std::string>().substr(0, 3), "10^") << "panels see them multiplied";
    const float lowest = *std::min_element(values.begin(), values.end());
    const std::string first = QString::number(static_cast<double>(lowest), 'g', 6).toStdString();
    EXPECT_NE(table.find(" from " + first + "\n"), std::string::npos) << table;
    EXPECT_NE(table.find("count\n" + std::string(12 - first.size(), ' ') + first + ' '), std::string::npos) << table;
    EXPECT_EQ(table.find('^'), std::string::npos) << table;
}

TEST_F(HistogramCommand, PrintsOneJsonObject)
{
    const auto object = vetra({"histogram", small(), "--json"}).json();
    EXPECT_EQ(object.size(), 6u);
    EXPECT_EQ(object["nb_bins"], 4);
    EXPECT_EQ(object["min"], 10);
    EXPECT_EQ(object["width"], 1);
    EXPECT_EQ(object["max_count"], 3);
    EXPECT_EQ(counts(object), (Counts{2, 1, 3, 0}));
    EXPECT_EQ(object["x_unit"], "");
}

TEST_F(HistogramCommand, JsonIsWhatThePanelHolds)
{
    std::vector<float> values;
    for (const auto value : two_peaks())
        values.push_back(static_cast<float>(value) / 3.f);
    const QString path = floats(values);
    auto opened = document::open({path.toStdString()});
    ASSERT_TRUE(opened) << document_test::message_of(opened);
    ASSERT_FALSE(session.adoptImage(std::move(*opened)));
    Tool_Histo panel;
    panel.Update(0x102);
    panel.Fit();

    const auto object = vetra({"histogram", path, "--json", "--fit"}).json();
    EXPECT_EQ(object["nb_bins"], panel.histo->nb_bins);
    EXPECT_EQ(object["min"].get<float>(), panel.histo->min);
    EXPECT_EQ(object["width"].get<double>(), panel.histo->width);
    EXPECT_EQ(object["max_count"], panel.histo->max_count);
    EXPECT_EQ(counts(object), Counts(panel.histo->count, panel.histo->count + panel.histo->nb_bins));
    EXPECT_EQ(object["x_unit"], panel.x_unit);
    const double* smooth = panel.Peaks()->smooth;
    EXPECT_EQ(
        object["smoothed"].get<std::vector<double>>(), std::vector<double>(smooth, smooth + panel.histo->nb_bins));
    const auto found = workbench::fittedPeaks(panel);
    ASSERT_EQ(object["peaks"].size(), found.size());
    ASSERT_GE(found.size(), 1u);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto& peak = object["peaks"][i];
        EXPECT_EQ(peak["center"].get<double>(), found[i].center);
        EXPECT_EQ(peak["center_value"].get<double>(), found[i].centerValue);
        EXPECT_EQ(peak["height"].get<double>(), found[i].height);
        EXPECT_EQ(peak["width"].get<double>(), found[i].width);
    }
}

TEST_F(HistogramCommand, FitFindsThePeaksAndTellsHow)
{
    const auto object = vetra({"histogram", peaks(), "--json", "--fit"}).json();
    ASSERT_EQ(object["peaks"].size(), 2u);
    EXPECT_NEAR(object["peaks"][0]["center_value"].get<double>(), 300, 3);
    EXPECT_NEAR(object["peaks"][1]["center_value"].get<double>(), 700, 3);
    const auto& messages = object["messages"];
    EXPECT_EQ(messages[0][0], 11);
    EXPECT_TRUE(messages[0][1].get<std::string>().starts_with("nb pts:"));
    const nlohmann::json computing{4, "Computing Peak Fit: \x01"
                                      "2\x02 peaks ..."};
    EXPECT_NE(std::find(messages.begin(), messages.end(), computing), messages.end()) << messages;
    for (const auto& message : messages)
        EXPECT_TRUE(message[0] == 1 || message[0] == 2 || message[0] == 4 || message[0] == 11) << message;

    const Outcome table = vetra({"histogram", peaks(), "--fit"});
    EXPECT_NE(table.output.find("2 peaks\n"), std::string::npos) << table.output;
    EXPECT_EQ(table.errors, "");
}

TEST_F(HistogramCommand, BytesOfMessagesAreCodePoints)
{
    const QString path = floats({0, 1, std::numeric_limits<float>::quiet_NaN()}, "\xc3\xa9.nii");
    const auto object = vetra({"histogram", path, "--json", "--fit"}).json();
    EXPECT_EQ(object["messages"][0],
        (nlohmann::json{
            4, "1 pixel of \"\xc3\x83\xc2\xa9.nii\" is infinite or not a number; histograms leave it out."}));
}

TEST_F(HistogramCommand, FramesAreCountedFromOne)
{
    const QString path = small();
    EXPECT_EQ(counts(vetra({"histogram", path, "--json", "--frames", "1-1"}).json()), (Counts{2, 1, 0, 0}));
    EXPECT_EQ(counts(vetra({"histogram", path, "--json", "--frames", "2"}).json()), (Counts{0, 0, 3, 0}));
    EXPECT_EQ(counts(vetra({"histogram", path, "--json", "--frames", "1-2"}).json()), (Counts{2, 1, 3, 0}));
    EXPECT_TRUE(vetra({"histogram", path, "--frames", "2"}).output.starts_with("\"a.nii\": frame 2 of 2 frames of 3"));
    const QString three = volume({1, 2, 3}, {1, 1, 3}, "three.nii");
    EXPECT_TRUE(vetra({"histogram", three, "--frames", "2-3"})
                    .output.starts_with("\"three.nii\": frames 2 to 3 of 3 frames of 1"));
    expect_refused(vetra({"histogram", path, "--frames", "2-3"}), 1, "\"a.nii\" has the frames 1 to 2");
    for (const char* wrong : {"0-1", "2-1", "1-", "-1", "a-b", "1-2-3", "", "99999999999-1"})
        expect_refused(vetra({"histogram", path, QString("--frames=") + wrong}), 2, "frames");
}

TEST_F(HistogramCommand, ComponentsOfColours)
{
    const QString path = colours();
    const auto object = vetra({"histogram", path, "--json"}).json();
    EXPECT_EQ(object["nb_bins"], 257);
    EXPECT_EQ(object["max_count"], 2);
    EXPECT_EQ(counts(object, "red")[200], 1u);
    EXPECT_EQ(counts(object, "green")[20], 2u);
    EXPECT_EQ(counts(object, "blue")[30], 1u);
    EXPECT_EQ(counts(object, "max_component")[200], 1u);
    EXPECT_EQ(counts(object)[3 + 11 + 3], 1u);
    const auto largest_of = [&](const char* component) {
        const std::string output = vetra({"histogram", path, "--component", component}).output;
        return output.substr(
            output.find("largest count"), output.find("\n        from") - output.find("largest count"));
    };
    EXPECT_EQ(largest_of("green"), "largest count is 2 at 20.5");
    EXPECT_EQ(largest_of("red"), "largest count is 1 at 0.5");
    EXPECT_EQ(largest_of("max"), "largest count is 1 at 0.5");
    EXPECT_EQ(largest_of("blue"), "largest count is 2 at 0.5");
    EXPECT_EQ(largest_of("grey"), "largest count is 1 at 0.5");
    expect_refused(vetra({"histogram", path, "--component", "purple"}), 2, "give max, red, green, blue or grey");
}

TEST_F(HistogramCommand, BinsAreMergedToAtMostSoMany)
{
    const auto object = vetra({"histogram", peaks(), "--json", "--bins-max", "100"}).json();
    EXPECT_LE(object["nb_bins"].get<int>(), 100);
    EXPECT_GT(object["width"].get<double>(), 1);
    for (const char* wrong : {"0", "65536", "many"})
        expect_refused(vetra({"histogram", small(), "--bins-max", wrong}), 2, "bins-max");
}

TEST_F(HistogramCommand, ExportsByteForByte)
{
    const auto target = folder / "\xc3\xa9t\xc3\xa9.csv";
    const QString name = QString::fromStdString(target.string());
    EXPECT_EQ(vetra({"histogram", small(), "--export", name, "--separator", ";"}).status, 0);
    EXPECT_EQ(bytes_of_file(target), "sep=;\n=========== Histogram information (2 frames) =========\n\n"
                                     "GLI Value;Nb of pixels\n10;2\n11;1\n12;3\n13;0\n\n");
    EXPECT_EQ(vetra({"histogram", small(), "--export", name, "--frames", "2-2"}).status, 0);
    EXPECT_EQ(bytes_of_file(target), "sep=\t\n=========== Histogram information (1 frames out of 2) =========\n\n"
                                     "GLI Value\tNb of pixels\n10\t0\n11\t0\n12\t3\n13\t0\n\n");
}

TEST_F(HistogramCommand, ExportsPeaks)
{
    const auto target = folder / "peaks.csv";
    const auto object = vetra({"histogram", peaks(), "--json", "--fit", "--separator", ",", "--export",
                                  QString::fromStdString(target.string())})
                            .json();
    std::string rows = "\n\nWe have 2 Gausian peaks \nPeak Number,Peak Center,Peak Height,Peak Width,\n";
    for (int i = 0; i < 2; ++i) {
        const auto& peak = object["peaks"][static_cast<std::size_t>(i)];
        rows += QString::asprintf("%d,%.2f,%.2f,%.2f\n", i + 1, peak["center_value"].get<double>(),
            peak["height"].get<double>(), peak["width"].get<double>())
                    .toStdString();
    }
    const std::string bytes = bytes_of_file(target);
    EXPECT_EQ(bytes.substr(bytes.find("\n\n\n") + 2), rows + "\n");
}

TEST_F(HistogramCommand, SeparatorsAreOneCharacter)
{
    const auto target = folder / "a.csv";
    const QString name = QString::fromStdString(target.string());
    for (const char* tab : {"tab", "\\t", "\t"}) {
        EXPECT_EQ(vetra({"histogram", small(), "--export", name, "--separator", tab}).status, 0);
        EXPECT_TRUE(bytes_of_file(target).starts_with("sep=\t\n"));
    }
    for (const char* wrong : {"", "ab", "\n", "\x01", "\xc3\xa9"})
        expect_refused(vetra({"histogram", small(), QString("--separator=") + wrong}), 2, "separator");
}

TEST_F(HistogramCommand, DrawsThePanel)
{
    const QString name = file("p.png");
    EXPECT_EQ(vetra({"histogram", peaks(), "--picture", name}).status, 0);
    const QImage usual(name);
    EXPECT_EQ(usual.size(), QSize(320, 160));
    EXPECT_EQ(vetra({"histogram", peaks(), "--picture", name, "--size", "500x90"}).status, 0);
    const QImage picture(name);
    EXPECT_EQ(picture.size(), QSize(500, 90));
    EXPECT_GT(count_of(picture, Qt::yellow), 200);
    for (const char* wrong : {"10", "0x5", "5x0", "9000x5", "5X5", "5x5x5"})
        expect_refused(vetra({"histogram", small(), "--size", wrong}), 2, "size");
}

TEST_F(HistogramCommand, DrawsTheGraphWindow)
{
    const QString path = peaks(), name = file("g.png");
    EXPECT_EQ(vetra({"histogram", path, "--graph", name}).status, 0);
    const QImage usual(name);
    EXPECT_EQ(usual.size(), QSize(800, 400));
    EXPECT_GT(count_of(usual, Qt::yellow), 500);
    EXPECT_EQ(count_of(usual, Qt::magenta), 0) << "nothing has been fitted";
    EXPECT_EQ(vetra({"histogram", path, "--graph", name, "--size", "640x480"}).status, 0);
    EXPECT_EQ(QImage(name).size(), QSize(640, 480));
}

TEST_F(HistogramCommand, PeaksInTheGraphAreFoundForIt)
{
    const QString path = peaks(), name = file("g.png");
    const auto graph = [&](const QStringList& more) {
        const Outcome outcome = vetra(QStringList{"histogram", path, "--graph", name} + more);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, "");
        return QImage(name);
    };
    EXPECT_EQ(count_of(graph({"--peaks", "off"}), Qt::green), 0);
    const QImage together = graph({"--peaks", "composite"}), each = graph({"--peaks", "individual"});
    EXPECT_GT(count_of(together, Qt::green), 300);
    EXPECT_GT(count_of(each, Qt::green), count_of(together, Qt::green)) << "two curves";
    EXPECT_EQ(graph({"--fit", "--peaks", "individual"}), each);
    EXPECT_GT(count_of(graph({"--fit"}), Qt::magenta), 300) << "smoothed, without peaks";
    EXPECT_EQ(vetra({"histogram", path, "--graph", name, "--peaks", "composite", "--json"}).json().count("peaks"), 0u);
    for (const char* wrong : {"all", "1", "Off"})
        expect_refused(vetra({"histogram", path, QString("--peaks=") + wrong}), 2, "give off, composite or individual");
}

TEST_F(HistogramCommand, BadInputsEndWithAMessage)
{
    expect_refused(vetra({"histogram", file("nowhere.nii")}), 1, "\"nowhere.nii\" does not exist");
    document_test::write_file(folder / "damaged.nii", "not an image");
    expect_refused(vetra({"histogram", file("damaged.nii"), "--json"}), 1, "\"damaged.nii\" is damaged");
    const QString nothing = floats(std::vector<float>(4, std::numeric_limits<float>::infinity()));
    expect_refused(vetra({"histogram", nothing, "--export", file("x.csv")}), 1,
        "4 pixels of \"f.nii\" are infinite or not a number; histograms leave them out.\n"
        "\"f.nii\" has no grey values that could be counted.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "x.csv"));
}

TEST_F(HistogramCommand, WrongUsageIsTwo)
{
    expect_refused(vetra({}), 2, "subcommand");
    expect_refused(vetra({"histogram"}), 2, "required");
    expect_refused(vetra({"histogram", small(), "--no-such-option"}), 2, "--no-such-option");
    EXPECT_EQ(vetra({"histogram", "--help"}).status, 0);
}

TEST_F(HistogramCommand, WhatCannotBeWrittenIsNoSuccess)
{
    const QString path = small();
    const Outcome outcome = vetra({"histogram", path, "--export", QString::fromStdString(folder.path().string()),
        "--picture", file("nowhere/p.png")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors.find("there is a folder or device of that name"), std::string::npos) << outcome.errors;
    EXPECT_NE(outcome.errors.find("nowhere does not exist"), std::string::npos) << outcome.errors;
    const Outcome full = vetra({"histogram", path}, "exec >/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.errors, "The result could not be printed whole; the disk may be full.\n");
}

TEST_F(HistogramCommand, AFileThatWouldBeCutShortIsNotReplaced)
{
    const QString path = peaks();
    document_test::write_file(folder / "old.csv", "old");
    document_test::write_file(folder / "old.png", "old");
    const Outcome outcome =
        vetra({"histogram", path, "--export", file("old.csv"), "--picture", file("old.png"), "--size", "2000x1000"},
            "trap '' XFSZ; ulimit -f 1");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
        "\"old.csv\" cannot be saved: the table could not be written whole. Choose another place.\n"
        "\"old.png\" cannot be saved: the picture could not be written whole. Choose another place.\n");
    EXPECT_EQ(bytes_of_file(folder / "old.csv"), "old");
    EXPECT_EQ(bytes_of_file(folder / "old.png"), "old");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.nii", "old.csv", "old.png"}));
}

TEST_F(HistogramCommand, ResultsDoNotTakeThePlaceOfTheImage)
{
    const QString path = small();
    const std::string before = bytes_of_file(folder / "a.nii");
    std::filesystem::create_symlink(folder / "a.nii", folder / "link.csv");
    for (const QString& target : {path, file("../" + folder.path().filename().string() + "/a.nii"), file("link.csv")}) {
        expect_refused(vetra({"histogram", path, "--export", target}), 1, "is the image itself");
        expect_refused(vetra({"histogram", path, "--picture", target}), 1, "is the image itself");
    }
    for (const char* same : {"x", "./x", "sub/../x"})
        expect_refused(vetra({"histogram", path, "--picture", file("x"), "--export", file(same)}), 1, "in one file");
    expect_refused(vetra({"histogram", path, "--graph", file("x"), "--picture", file("x")}), 1, "in one file");
    expect_refused(vetra({"histogram", path, "--graph", path}), 1, "is the image itself");
    EXPECT_EQ(bytes_of_file(folder / "a.nii"), before);
}

}
