#include "workbench/document/marker_text.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

namespace document {

namespace {

using Json = nlohmann::json;
using Position = std::array<double, 3>;

constexpr std::string_view schema = "https://raw.githubusercontent.com/slicer/slicer/master/Modules/Loadable/Markups/"
                                    "Resources/Schema/markups-schema-v1.0.3.json#";

// The name of any version 1: "...markups-schema-v1.N.N.json", with or without "#".
bool is_schema_of_version_1(std::string_view name)
{
    constexpr std::string_view version_1 = "markups-schema-v1.";
    const auto version = name.rfind(version_1);
    if (version == name.npos)
        return false;
    name.remove_prefix(version + version_1.size());
    const auto pass_digits = [&name] {
        const auto digits = std::min(name.find_first_not_of("0123456789"), name.size());
        name.remove_prefix(digits);
        return digits > 0;
    };
    const auto pass = [&name](std::string_view text) {
        const bool here = name.starts_with(text);
        name.remove_prefix(here ? text.size() : 0);
        return here;
    };
    return pass_digits() && pass(".") && pass_digits() && pass(".json") && name.find_first_not_of('#') == name.npos;
}

// The format has colours for whole lists only; others pass over keys that they do not know.
constexpr const char* colour_key = "vetraColor";

/// What is wrong with a file, and what to do: "has no list of markups. Choose ...".
struct Wrong {
    std::string text;
};

constexpr const char* choose_another = " Choose a file with markups (.mrk.json).";
constexpr const char* correct_it = " Correct it in a text editor.";

// Null when it is not there.
const Json* member(const Json& object, const char* key)
{
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

std::string text_of(const Json& object, const char* key, const std::string& usual = {})
{
    const Json* text = member(object, key);
    if (text && !text->is_string())
        throw Wrong{std::string("its \"") + key + "\" is no text." + correct_it};
    return text ? marker_text(text->get_ref<const std::string&>()) : usual;
}

bool flag_of(const Json& object, const char* key, bool usual)
{
    const Json* flag = member(object, key);
    if (flag && !flag->is_boolean())
        throw Wrong{std::string("its \"") + key + "\" is neither true nor false." + correct_it};
    return flag ? flag->get<bool>() : usual;
}

std::optional<Position> three_numbers(const Json* list)
{
    if (!list || !list->is_array() || list->size() != 3)
        return {};
    for (const Json& number : *list)
        if (!number.is_number() || !std::isfinite(number.get<double>()))
            return {};
    return list->get<Position>();
}

/// @param most  the number that full colour is written as
std::optional<Rgb> colour_of(const Json* list, double most)
{
    const auto parts = three_numbers(list);
    if (!parts)
        return {};
    const auto channel = [&](double part) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(part / most, 0.0, 1.0) * 255));
    };
    return Rgb{channel((*parts)[0]), channel((*parts)[1]), channel((*parts)[2])};
}

std::size_t line_of(std::string_view text, std::size_t byte)
{
    return 1 + static_cast<std::size_t>(std::ranges::count(text.substr(0, byte), '\n'));
}

// Line by line, so that one name in Latin-1 leaves the others alone.
std::string as_utf8(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const auto line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        result += is_utf8(line) ? std::string(line) : from_latin1(line);
        text.remove_prefix(line.size());
    }
    return result;
}

Json parsed(const std::string& text, const std::filesystem::path& path)
{
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        const auto line = line_of(text, error.byte == 0 ? 0 : error.byte - 1);
        throw Wrong{quoted(path) + ", line " + std::to_string(line) +
                    ": this is no JSON. Correct it in a text editor, or get a complete copy of the file."};
    } catch (const Json::out_of_range&) {
        throw Wrong{quoted(path) + " holds a number that is too large." + correct_it};
    }
}

/// One list of points of a file.
class List {
public:
    explicit List(const Json& list) : list_(list)
    {
        const auto system = text_of(list, "coordinateSystem", "LPS");
        if (system != "LPS" && system != "RAS")
            throw Wrong{"its coordinates are \"" + system + "\", neither LPS nor RAS." + correct_it};
        if (const auto units = text_of(list, "coordinateUnits", "mm"); units != "mm")
            throw Wrong{"its coordinates are in \"" + units + "\", not in millimetres." + correct_it};
        to_lps_ = system == "RAS" ? -1 : 1;
    }

    Marker marker(const Json& point) const
    {
        if (!point.is_object())
            throw Wrong{std::string("it is no control point.") + correct_it};
        Marker marker;
        marker.label = text_of(point, "label");
        marker.description = text_of(point, "description");
        marker.enabled = flag_of(point, "visibility", true);
        marker.selected = flag_of(point, "selected", true);
        marker.locked = flag_of(point, "locked", false);
        marker.position = position(point);
        marker.colour = colour_of(member(point, colour_key), 255);
        if (!marker.colour)
            marker.colour = list_colour(marker.selected);
        return marker;
    }

private:
    std::optional<Position> position(const Json& point) const
    {
        const bool there = member(point, "position") != nullptr;
        if (text_of(point, "positionStatus", there ? "defined" : "undefined") != "defined")
            return {};
        auto place = three_numbers(member(point, "position"));
        if (!place)
            throw Wrong{std::string("its position is not three numbers.") + correct_it};
        for (const std::size_t axis : {0u, 1u})
            (*place)[axis] = to_lps_ < 0 ? 0 - (*place)[axis] : (*place)[axis];
        return place;
    }

    std::optional<Rgb> list_colour(bool selected) const
    {
        const Json* display = member(list_, "display");
        if (!display || !display->is_object())
            return {};
        return colour_of(member(*display, selected ? "selectedColor" : "color"), 1);
    }

    const Json& list_;
    int to_lps_;
};

class Reader {
public:
    explicit Reader(const std::filesystem::path& path) : path_(path) {}

    MarkerFile read(const std::string& text)
    {
        const Json file = parsed(text, path_);
        const Json& lists = markups(file);
        for (std::size_t i = 0; i < lists.size(); ++i)
            read_list(lists[i], "markup " + std::to_string(i + 1));
        tell_of_others();
        return std::move(result_);
    }

private:
    const Json& markups(const Json& file) const
    {
        const Json* kind = file.is_object() ? member(file, "@schema") : nullptr;
        if (!kind || !kind->is_string())
            throw Wrong{quoted(path_) + " holds no markups: it has no \"@schema\"." + choose_another};
        const auto name = kind->get<std::string>();
        if (!is_schema_of_version_1(name))
            throw Wrong{quoted(path_) + " is of a kind that is not known here: \"" + name.substr(0, 100) + "\"." +
                        choose_another};
        const Json* lists = member(file, "markups");
        if (!lists || !lists->is_array())
            throw Wrong{quoted(path_) + " has no list \"markups\"." + choose_another};
        return *lists;
    }

    void read_list(const Json& list, const std::string& where)
    {
        try {
            if (!list.is_object() || text_of(list, "type").empty())
                throw Wrong{std::string("it has no type.") + correct_it};
            const auto type = text_of(list, "type");
            if (type == "Fiducial")
                read_points(list, where);
            else
                ++others_[type];
            has_points_ |= type == "Fiducial";
        } catch (const Wrong& wrong) {
            complain(where, wrong);
        }
    }

    void read_points(const Json& list, const std::string& where)
    {
        const List points(list);
        const Json* all = member(list, "controlPoints");
        if (!all)
            return;
        if (!all->is_array())
            throw Wrong{std::string("its \"controlPoints\" are no list.") + correct_it};
        for (std::size_t i = 0; i < all->size(); ++i) {
            try {
                result_.markers.push_back(points.marker((*all)[i]));
            } catch (const Wrong& wrong) {
                complain("point " + std::to_string(i + 1) + " of " + where, wrong);
            }
        }
    }

    // What is complete names the file already.
    [[noreturn]] void complain(const std::string& where, const Wrong& wrong) const
    {
        const auto file = quoted(path_);
        throw wrong.text.starts_with(file) ? wrong : Wrong{file + ", " + where + ": " + wrong.text};
    }

    void tell_of_others()
    {
        std::string names;
        for (const auto& [type, count] : others_)
            names += (names.empty() ? "" : ", ") + std::to_string(count) + " " + type;
        if (names.empty())
            return;
        if (!has_points_)
            throw Wrong{
                quoted(path_) + " holds no points, only markups of other kinds (" + names + ")." + choose_another};
        result_.notices.push_back("Only points are shown; left out of " + quoted(path_) + ": " + names + ".");
    }

    const std::filesystem::path& path_;
    MarkerFile result_;
    std::map<std::string, int> others_; // markups that are no points, by type
    bool has_points_ = false;
};

}

Result<MarkerFile> read_markers_json(std::string_view text, const std::filesystem::path& path)
{
    try {
        return Reader(path).read(as_utf8(text));
    } catch (const Wrong& wrong) {
        return Failure{wrong.text};
    }
}

std::string write_markers_json(const MarkerList& markers)
{
    using Written = nlohmann::ordered_json;
    Written points = Written::array();
    for (const Marker& marker : markers) {
        Written point = {{"id", std::to_string(points.size() + 1)}, {"label", marker.label}};
        if (!marker.description.empty())
            point["description"] = marker.description;
        if (marker.position)
            point["position"] = *marker.position;
        point["selected"] = marker.selected;
        point["locked"] = marker.locked;
        point["visibility"] = marker.enabled;
        point["positionStatus"] = marker.position ? "defined" : "undefined";
        if (marker.colour)
            point[colour_key] = {marker.colour->red, marker.colour->green, marker.colour->blue};
        points.push_back(std::move(point));
    }
    const Written list = {{"type", "Fiducial"}, {"coordinateSystem", "LPS"}, {"coordinateUnits", "mm"},
        {"controlPoints", std::move(points)}};
    return Written{{"@schema", schema}, {"markups", Written::array({list})}}.dump(4) + "\n";
}

}
