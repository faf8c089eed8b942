#include "tests/workbench/command/vetra_process.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace test;

namespace {

// The rows that a spreadsheet program finds in a file, after it has made a workbook of it and a table of that.
QStringList rows_in_spreadsheet(const document_test::Folder& folder, const QString& program, const QString& name)
{
    const QString path = QString::fromStdString(folder.path().string());
    const auto convert = [&](const QString& format, const QString& from) {
        QProcess office;
        office.start(program, {"--headless", "-env:UserInstallation=file://" + path + "/profile", "--convert-to",
                                  format, "--outdir", path + "/converted", from});
        return office.waitForFinished(180000) && office.exitCode() == 0;
    };
    const QString base = path + "/converted/" + name;
    if (!convert("xlsx", path + '/' + name + ".csv") || !convert("csv", base + ".xlsx"))
        return {};
    QFile table(base + ".csv");
    return table.open(QIODevice::ReadOnly) ? QString::fromUtf8(table.readAll()).split('\n') : QStringList();
}

}

TEST(Spreadsheet, OpensTheExport)
{
    const QString program = QStandardPaths::findExecutable("soffice");
    if (program.isEmpty())
        GTEST_SKIP() << "soffice is not installed";
    const document_test::Folder folder;
    write_volume(folder / "a.nii", size_of_two_peaks, two_peaks());
    const auto object = vetra({"histogram", QString::fromStdString((folder / "a.nii").string()), "--json", "--fit",
                                  "--separator", ";", "--export", QString::fromStdString((folder / "t.csv").string())})
                            .json();
    const QStringList rows = rows_in_spreadsheet(folder, program, "t");
    ASSERT_FALSE(rows.isEmpty());
    const auto header = rows.indexOf(QRegularExpression("^GLI Value,Nb of pixels,*$"));
    ASSERT_GE(header, 0) << rows.join('\n').toStdString();
    const auto counts = object["count"].get<std::vector<unsigned>>();
    for (std::size_t bin = 0; bin < counts.size(); ++bin) {
        const QStringList cells = rows.at(header + 1 + static_cast<int>(bin)).split(',');
        ASSERT_EQ(cells.at(0).toInt(), object["min"].get<int>() + static_cast<int>(bin));
        ASSERT_EQ(cells.at(1).toUInt(), counts[bin]);
    }
    const auto peaks = rows.indexOf(QRegularExpression("^Peak Number,Peak Center,Peak Height,Peak Width,*$"));
    ASSERT_GE(peaks, 0);
    const QStringList first = rows.at(peaks + 1).split(',');
    EXPECT_EQ(first.at(0), "1");
    EXPECT_NEAR(first.at(1).toDouble(), object["peaks"][0]["center_value"].get<double>(), 0.006);
    EXPECT_NEAR(first.at(3).toDouble(), object["peaks"][0]["width"].get<double>(), 0.006);
}
