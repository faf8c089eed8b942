#include "tests/histo/vectors.h"

#include <cstdio>
#include <deque>
#include <fstream>
#include <iterator>

namespace test {

namespace {

std::string content_of(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// A text in which "*" stands for anything.
bool matches(const std::string& text, const std::string& pattern)
{
    const size_t star = pattern.find('*');
    return star == std::string::npos ? text == pattern : text.starts_with(pattern.substr(0, star));
}

class Export_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        std::deque<own_frames::Frame> frames(one_.at("all"));
        std::vector<own_frames::Frame*> shown;
        for (size_t i = 0; i < frames.size(); ++i) {
            frames[i].selected = i < one_.at("selected");
            shown.push_back(&frames[i]);
        }
        own_frames::show(shown);
        own_registry::define_array(
            "$REGIONAL_SEPARATOR", reinterpret_cast<void*>(one_.at("separator").get<std::uintptr_t>()));
        panel.histo = panel_record(histogram_of(one_.at("histo")));
        give_peaks(one_.at("peaks"));
        reports.clear();

        const json& expected = one_.at("expected");
        std::string path = one_.value("path", ::testing::TempDir() + "histogram_vector.csv");
        EXPECT_EQ(panel.Write(path.data()), expected.at("result").get<int>());
        if (!expected.at("bytes").is_null()) {
            EXPECT_EQ(content_of(path), bytes_of(expected["bytes"]));
        }
        compare_log(lines_of(expected.value("log", json::array())));
        std::remove(path.c_str());
    }

private:
    void give_peaks(const json& peaks)
    {
        if (peaks.empty())
            return;
        panel.Fit(); // for its list
        auto* const list = const_cast<Histo_Peaks*>(panel.Peaks());
        ASSERT_NE(list, nullptr);
        list->Release();
        list->smooth = new double[1]();
        Histo_Peak* tail = nullptr;
        for (const json& peak : peaks) {
            Histo_Peak* const added = Peak_Add(list, &tail, 0, 1, 1);
            for (int k = 0; k < 3; ++k)
                (*added->param)[k] = peak.at(static_cast<size_t>(k));
        }
    }

    void compare_log(const std::vector<std::string>& expected) const
    {
        const auto lines = reports.lines();
        ASSERT_EQ(lines.size(), expected.size());
        for (size_t i = 0; i < lines.size(); ++i)
            EXPECT_TRUE(matches(lines[i], expected[i])) << lines[i] << "\ninstead of\n" << expected[i];
    }
};

}

std::unique_ptr<Vector_Case> make_export_case(const json& one)
{
    return std::make_unique<Export_Case>(one);
}

}
