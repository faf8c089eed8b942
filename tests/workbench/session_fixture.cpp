#include "tests/workbench/session_fixture.h"

#include "hostkit/structures/tree.h"

#include <algorithm>
#include <cmath>

namespace test {

document::Opened made_image(int width, int height, int depth, std::array<double, 3> spacing)
{
    document::Opened opened;
    auto& volume = opened.volume;
    volume.type = document::PixelType::u16;
    volume.geometry.size = {width, height, depth};
    volume.geometry.spacing = spacing;
    volume.pixels = document::PixelMemory::allocate(volume.geometry.voxels() * 2);
    auto* pixel = reinterpret_cast<std::uint16_t*>(volume.pixels.data());
    for (int z = 0; z < depth; ++z)
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                *pixel++ = std::uint16_t(100 * z + 10 * y + x);
    volume.series = "Made";
    volume.files = {"/images/made.nii"};
    for (int z = 0; z < depth; ++z)
        volume.frames.push_back({z * spacing[2], z + 1, volume.files[0]});
    return opened;
}

document::Opened image_of_two_peaks()
{
    auto opened = made_image(100, 100, 1);
    opened.volume.files = {"/images/two_peaks.nii"};
    for (auto& frame : opened.volume.frames)
        frame.file = opened.volume.files[0];
    auto* pixel = reinterpret_cast<std::uint16_t*>(opened.volume.pixels.data());
    for (int i = 0; i < 100 * 100; ++i)
        pixel[i] = static_cast<std::uint16_t>((i % 2 ? 200 : 700) + 40 * std::sin(i * 0.7) * std::cos(i * 1.3));
    opened.volume.slope = 0.5;
    opened.volume.intercept = -10;
    return opened;
}

SessionTest::SessionTest()
{
    subscription_ = hostkit::On_Update([this](unsigned long long flags) { broadcasts_.push_back(flags); });
    brushes_.Update(1ull << 23);
}

void SessionTest::open(int width, int height, int depth, std::array<double, 3> spacing)
{
    auto opened = made_image(width, height, depth, spacing);
    if (const auto others = session.series().size()) {
        opened.volume.files = {"/images/made" + std::to_string(others + 1) + ".nii"};
        for (auto& frame : opened.volume.frames)
            frame.file = opened.volume.files[0];
    }
    const auto failure = session.adoptImage(std::move(opened));
    ASSERT_FALSE(failure) << failure->message;
}

void SessionTest::choose_brush_of_radius(unsigned radius)
{
    const auto* radii = hostkit::Array_Variable<unsigned short>("$BRUSH_SIZE");
    const auto* found = std::find(radii, radii + session.brushCount(), radius);
    ASSERT_NE(found, radii + session.brushCount());
    session.setCurrentBrush(unsigned(found - radii));
}

void SessionTest::paint(QPoint from, QPoint to, bool erase)
{
    const QString refused = session.beginStroke(from, erase);
    ASSERT_TRUE(refused.isEmpty()) << refused.toStdString();
    session.continueStroke(to);
    session.endStroke();
}

Strato_2D* SessionTest::series_in_tree(int index)
{
    const Strato_2D* root = hostkit::Root_2D();
    for (int study = 0; study < root->Child_Get_Nb(); ++study) {
        const int count = root->Child_Get_Pt(study)->Child_Get_Nb();
        if (index < count)
            return root->Child_Get_Pt(study)->Child_Get_Pt(index);
        index -= count;
    }
    return nullptr;
}

std::vector<std::uint8_t> SessionTest::tags() const
{
    const auto all = session.labels().tags();
    return {all.begin(), all.end()};
}

std::size_t SessionTest::painted(unsigned tag) const
{
    const auto all = session.labels().tags();
    return std::size_t(std::count(all.begin(), all.end(), tag));
}

}
