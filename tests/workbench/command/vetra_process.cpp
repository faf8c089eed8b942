#include "tests/workbench/command/vetra_process.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <cmath>

namespace test {

Outcome vetra(const QStringList& arguments, const std::string& shell)
{
    QProcess program;
    const QString before = QString::fromStdString(shell) + "; exec \"$0\" \"$@\"";
    program.start("/bin/sh", QStringList{"-c", before, VETRA} + arguments);
    EXPECT_TRUE(program.waitForFinished(120000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
        program.readAllStandardError().toStdString()};
}

void write_volume(const document_test::Path& path, std::array<int, 3> size, const std::vector<std::uint16_t>& values)
{
    document::Geometry geometry;
    geometry.size = size;
    document_test::write_image(path, document::PixelType::u16, geometry, values.data());
}

std::vector<std::uint16_t> two_peaks()
{
    std::vector<std::uint16_t> values;
    const auto add = [&](double centre, double width, double height) {
        for (int value = 0; value < 1000; ++value)
            values.insert(values.end(),
                static_cast<std::size_t>(height * std::exp(-std::pow((value - centre) / width, 2))),
                static_cast<std::uint16_t>(value));
    };
    add(300, 30, 120);
    add(700, 40, 100);
    values.resize(60 * 50 * 5, 300);
    return values;
}

}
