#include "tests/workbench/shell/database_fixture.h"

#include "workbench/tour/database_rows.h"

#include <cmath>

namespace test {

// Slices with a round shape that is larger further up.
void writeSeries(const document_test::Folder& folder, const std::string& study, const std::string& name, int number,
    const std::string& modality, int slices)
{
    constexpr int side = 64;
    for (int z = 0; z < slices; ++z) {
        document_test::Dicom dicom;
        dicom.rows = dicom.columns = side;
        dicom.series_uid = study + "." + std::to_string(number);
        dicom.series = name;
        dicom.modality = modality;
        dicom.instance = z + 1;
        dicom.position = {0, 0, 2.5 * z};
        dicom.more[0x0020000D] = {"UI", study};
        dicom.more[0x00081030] = {"LO", study == "1.2" ? "Head" : "Abdomen"};
        dicom.more[0x00080020] = {"DA", "20240531"};
        dicom.more[0x00200011] = {"IS", std::to_string(number)};
        if (name == "Scout")
            dicom.more[0x00080008] = {"CS", "ORIGINAL\\PRIMARY\\LOCALIZER"};
        std::vector<std::uint16_t> pixels;
        for (int i = 0; i < side * side; ++i) {
            const double away = std::hypot(i % side - 32.0, i / side - 32.0);
            pixels.push_back(static_cast<std::uint16_t>(away < 12 + 2 * z ? 600 + 10 * number + i % 7 : 20 + i % 5));
        }
        dicom.pixels = document_test::as_bytes(pixels);
        document_test::write_dicom(folder / (name + std::to_string(z) + ".dcm"), dicom);
    }
}

void Database::browse()
{
    window.resize(1280, 860);
    writeSeries(folder, "1.2", "Scout", 1, "MR", 1);
    writeSeries(folder, "1.2", "Axial T1", 2, "MR", 6);
    writeSeries(folder, "1.3", "Liver", 1, "CT", 4);
    open(QString::fromStdString(folder.path().string()));
    ASSERT_EQ(message(), "");
    ASSERT_EQ(session.series().size(), 3u);
    ASSERT_TRUE(dock.isVisible());
}

int Database::row(int level, int behind) const
{
    return workbench::rowOfLevel(list, level, behind);
}

void Database::click(int at)
{
    driver.click(dock.classWidget(), workbench::rowPlace(dock.trees().panel(), dock.classWidget(), at));
}

void Database::choose(int dimension)
{
    const QWidget& button = dock.chooser().button(dimension);
    driver.click(button, middleOf(button));
}

std::string Database::selected(const Tool_DB_List& of)
{
    std::string text;
    for (int i = 0; i < of.nb; ++i)
        text += static_cast<char>('0' + (of.list_pt[i].select & 3));
    return text;
}

}
