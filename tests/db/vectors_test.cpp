// Compares the database list with cases from a folder: db_vectors_runner [FOLDER], or the folder in VETRA_VECTORS.
// Without a folder there is nothing to compare.

#include "db/browse_view.h"
#include "db/drag.h"
#include "db/edit_layout.h"
#include "db/edit_view.h"
#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "tests/db/own_tree.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>

namespace {

using nlohmann::json;
using Numbers = std::vector<int>;
using Pairs = std::vector<Numbers>;

// A text that lives as long as the case; null stays null.
const char* text_of(const json& text)
{
    return text.is_null() ? nullptr : text.get_ref<const std::string&>().c_str();
}

Pairs states_of(const Tool_DB_List& panel)
{
    Pairs result;
    for (int i = 0; i < panel.nb; ++i)
        result.push_back({panel.list_pt[i].state, panel.list_pt[i].select});
    return result;
}

template <class Field>
Numbers all_of(const Tool_DB_List& panel, Field DB_List::*field)
{
    Numbers result;
    for (int i = 0; i < panel.nb; ++i)
        result.push_back(panel.list_pt[i].*field);
    return result;
}

std::string call_text(const json& call)
{
    std::string text = call[0];
    const size_t parts = text.starts_with("flag") ? call.size() : 4;
    for (size_t i = 1; i < parts; ++i) {
        const json part = i < call.size() ? call[i] : json();
        text += ' ' + (part.is_null() ? "null" : part.is_string() ? part.get<std::string>() : part.dump());
    }
    return text;
}

std::vector<std::string> calls_of(const json& calls)
{
    std::vector<std::string> result;
    for (const json& call : calls)
        result.push_back(call_text(call));
    return result;
}

std::vector<std::string> taken_calls()
{
    auto calls = own_tree::take_calls();
    std::erase_if(calls, [](const std::string& call) { return call == "end" || call.starts_with("begin "); });
    return calls;
}

class Vector_Case : public ::testing::Test {
public:
    explicit Vector_Case(json one) : one_(std::move(one)) { own_tree::reset(); }
    ~Vector_Case() override { own_tree::reset(); }

protected:
    const json& expected() const { return one_.at("expected"); }

    template <class Object, class Add>
    void build(const json& node, Object* parent, const Add& add)
    {
        const std::string id = node.at("id");
        Object* const object =
            add(parent, own_tree::Description{id, text_of(node.at("title")), text_of(node.at("name")),
                            node.at("class_a").get<unsigned>(), node.at("magic").get<unsigned>(),
                            text_of(node.at("icon")), node.at("flag") != 0});
        objects_[id] = object;
        addresses_[id] = object;
        for (const json& child : node.at("children"))
            build(child, object, add);
    }

    void build_tree()
    {
        const json& root = one_.at("root");
        if (root.is_null())
            return;
        switch (one_.at("mode").get<int>() & 15) {
        case 1:
            return build(root, static_cast<Strato_1D*>(nullptr), own_tree::add_1d);
        case 3:
            return build(root, static_cast<Strato_3D*>(nullptr), own_tree::add_3d);
        default:
            return build(root, static_cast<Strato_2D*>(nullptr), own_tree::add_2d);
        }
    }

    void expect_row(const DB_List& row, const json& wanted) const
    {
        const auto number = [&](const char* field) { return wanted.at(field).get<unsigned>(); };
        EXPECT_EQ(row.state, number("state"));
        EXPECT_EQ(row.select, number("select"));
        EXPECT_EQ(row.code, number("word_a"));
        EXPECT_EQ(row.level, number("level"));
        EXPECT_EQ(row.nb_child, number("nb_child"));
        EXPECT_EQ(row.index, number("word_b"));
        EXPECT_EQ(row.nb_desc, number("nb_desc"));
        EXPECT_EQ(row.parent, number("parent"));
        EXPECT_EQ(row.object, wanted.at("object").is_null() ? nullptr : addresses_.at(wanted.at("object")));
        EXPECT_EQ(row.color, number("color"));
        EXPECT_STREQ(row.title, text_of(wanted.at("title")));
        EXPECT_STREQ(row.name, text_of(wanted.at("name")));
        EXPECT_STREQ(row.icon, text_of(wanted.at("icon")));
        EXPECT_EQ(row.nb_item, number("nb_item"));
    }

    void expect_rows(const Tool_DB_List& panel) const
    {
        const json& rows = expected().at("rows");
        ASSERT_EQ(panel.nb, static_cast<int>(rows.size()));
        for (int i = 0; i < panel.nb; ++i) {
            SCOPED_TRACE("row " + std::to_string(i));
            expect_row(panel.list_pt[i], rows[static_cast<size_t>(i)]);
        }
    }

    const json one_;
    std::map<std::string, Strato*> objects_;
    std::map<std::string, void*> addresses_;
};

class Create_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        build_tree();
        Tool_DB_Class panel(one_.at("mode"));
        EXPECT_EQ(panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr), expected().at("return"));
        expect_rows(panel);
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("rolled").get<Pairs>());
        DB_2D_Class_List_Paint(&panel);
        EXPECT_EQ(all_of(panel, &DB_List::line), expected().at("browse_lines").get<Numbers>());
    }
};

class Select_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        build_tree();
        own_tree::show_window();
        Tool_DB_Class panel(one_.at("mode"));
        panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr);
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        for (const auto& [id, flag] : one_.at("host_flags").items())
            own_tree::set_selected(objects_.at(id), flag != 0);
        panel.List_Select_From_DB(panel.nb, panel.list_pt);
        EXPECT_EQ(all_of(panel, &DB_List::select), expected().at("after_from").get<Numbers>());
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("after_roll").get<Pairs>());
        for (const json& edit : one_.at("edits"))
            panel.list_pt[edit[0].get<int>()].select = edit[1].get<unsigned short>();
        own_tree::take_calls();
        panel.List_Select_To_DB(panel.nb, panel.list_pt);
        EXPECT_EQ(taken_calls(), calls_of(expected().at("calls")));
        for (const auto& [id, flag] : expected().at("flags_after").items())
            EXPECT_EQ(own_tree::is_selected(objects_.at(id)), flag != 0) << id;
    }
};

// The files of a case and the objects that show their frames.
struct Files {
    struct File {
        std::string path;
        std::vector<Frame_Record> frames;
        std::vector<Frame_Record*> pointers;
        std::vector<unsigned char> access;
        File_Record record{};
    };
    std::vector<std::unique_ptr<File>> files;
    std::vector<File_Record*> pointers;
    std::map<std::string, const Frame_Record*> by_id;

    void add(const json& described)
    {
        if (described.is_null()) {
            pointers.push_back(nullptr);
            return;
        }
        auto file = std::make_unique<File>();
        file->path = described.at("path");
        const json& frames = described.at("frames");
        file->frames.reserve(frames.size());
        for (const json& frame : frames) {
            const auto number = [&](const char* field) { return frame.at(field).get<unsigned short>(); };
            file->frames.push_back(
                {number("modality"), number("flags"), number("width"), number("height"), number("z"), number("t")});
            file->pointers.push_back(&file->frames.back());
            file->access.push_back(frame.at("access").get<unsigned char>());
            by_id[frame.at("id")] = &file->frames.back();
        }
        file->record = {
            file->path.data(), static_cast<unsigned short>(frames.size()), file->access.data(), file->pointers.data()};
        pointers.push_back(&file->record);
        files.push_back(std::move(file));
    }
};

class File_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        Files files;
        for (const json& file : one_.at("files")) {
            files.add(file);
            if (!file.is_null())
                addresses_[file.at("id")] = files.pointers.back();
        }
        own_tree::define("$DB_2D_FILE_NB", static_cast<unsigned>(files.pointers.size()));
        own_tree::define("$DB_2D_FILE_PT", static_cast<const void*>(files.pointers.data()));
        std::vector<Strato_2D*> objects;
        for (const json& object : one_.at("objects")) {
            Strato_2D* const parent = own_tree::add_2d(nullptr, {"parent", text_of(object.at("parent_title"))});
            objects.push_back(own_tree::add_2d(parent, {.id = object.at("id"), .selected = object.at("flag") != 0}));
            if (const auto frame = files.by_id.find(object.at("frame")); frame != files.by_id.end())
                own_tree::set_frame(objects.back(), frame->second);
        }
        own_tree::set_delivered(objects);
        own_tree::fail_iterators(!one_.at("iterator"));
        if (one_.at("window"))
            own_tree::show_window();

        Tool_DB_File panel;
        EXPECT_EQ(panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr), expected().at("return"));
        expect_rows(panel);
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("rolled").get<Pairs>());
        panel.List_Select_From_DB(panel.nb, panel.list_pt);
        EXPECT_EQ(all_of(panel, &DB_List::select), expected().at("after_from").get<Numbers>());
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("after_roll").get<Pairs>());
        for (const json& edit : one_.at("edits"))
            panel.list_pt[edit[0].get<int>()].select = edit[1].get<unsigned short>();
        own_tree::take_calls();
        panel.List_Select_To_DB(panel.nb, panel.list_pt);
        EXPECT_EQ(taken_calls(), calls_of(expected().at("calls")));
        Numbers flags;
        for (const Strato_2D* object : objects)
            flags.push_back(own_tree::is_selected(object));
        EXPECT_EQ(flags, expected().at("flags_after").get<Numbers>());
    }
};

// A panel over rows that are given.
class Given_Rows : public Tool_DB_List {
public:
    explicit Given_Rows(const json& rows)
    {
        nb = static_cast<int>(rows.size());
        list_pt = static_cast<DB_List*>(std::calloc(rows.size() + 1, sizeof(DB_List)));
        for (int i = 0; i < nb; ++i)
            take(list_pt[i], rows[static_cast<size_t>(i)]);
    }

    unsigned short List_Create_From_DB(int*, DB_List**, int, int, void*) override { return 0; }
    void List_Select_From_DB(int, DB_List*) override {}
    void List_Select_To_DB(int, DB_List*) override {}

private:
    static void take(DB_List& row, const json& given)
    {
        const auto number = [&](const char* field) { return given.at(field).get<unsigned short>(); };
        const auto copy = [&](const char* field) {
            const char* const text = text_of(given.at(field));
            return text ? strdup(text) : nullptr;
        };
        row.state = number("state");
        row.select = number("select");
        row.line = number("line");
        row.code = number("word_a");
        row.level = number("level");
        row.nb_child = number("nb_child");
        row.index = number("word_b");
        row.nb_desc = number("nb_desc");
        row.parent = number("parent");
        row.title = copy("title");
        row.name = copy("name");
    }
};

class Roll_Up_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        Given_Rows panel(one_.at("rows"));
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("once").get<Pairs>());
        DB_2D_Class_List_Roll_Up(panel.nb, panel.list_pt);
        EXPECT_EQ(states_of(panel), expected().at("twice").get<Pairs>());
    }
};

void hold_keys(bool shift, bool control)
{
    BYTE keys[256] = {};
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    keys[VK_CONTROL] = control ? 0x80 : 0;
    SetKeyboardState(keys);
}

// Puts the pointer at a place in list coordinates.
void point(const Tool_DB_List& panel, int x, int y)
{
    RECT client{};
    GetClientRect(panel.list_box.window, &client);
    const auto origin = panel.Origin();
    POINT place{origin.x + x, client.bottom - 1 - (origin.y - y)};
    ClientToScreen(panel.list_box.window, &place);
    YCursor_X = place.x;
    YCursor_Y = place.y;
    const auto seen = panel.Pointer();
    ASSERT_EQ(seen.x, x);
    ASSERT_EQ(seen.y, y);
}

class Browse_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        db::drag = {};
        const test::Test_Window window(nullptr, 400, 3000);
        Given_Rows panel(one_.at("rows"));
        Boxs area;
        area.window = window.handle();
        area.width = 400;
        area.height = 3000;
        panel.Resize(&area);
        panel.Draw();
        size_t step = 0;
        for (const json& event : one_.at("events")) {
            SCOPED_TRACE("event " + std::to_string(step));
            hold_keys(event.value("shift", false), event.value("ctrl", false));
            point(panel, event.at("px"), event.at("py"));
            const json& after = expected()[step++];
            const int result = DB_2D_Class_List_Click(&panel, event.at("up_down"));
            EXPECT_EQ(result, after.at("return"));
            if (result)
                DB_2D_Class_List_Select(&panel);
            EXPECT_EQ(db::drag.going_on, after.at("drag").get<bool>());
            EXPECT_EQ(db::drag.anchor_line, after.at("anchor"));
            EXPECT_EQ(db::drag.end_line, after.at("end"));
            EXPECT_EQ(panel.last_row, after.at("last_row"));
            EXPECT_EQ(all_of(panel, &DB_List::state), after.at("state").get<Numbers>());
            EXPECT_EQ(all_of(panel, &DB_List::select), after.at("select").get<Numbers>());
            EXPECT_EQ(all_of(panel, &DB_List::line), after.at("lines").get<Numbers>());
        }
        hold_keys(false, false);
    }
};

class Widget_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        build_tree();
        if (one_.at("window"))
            own_tree::show_window();
        own_tree::define("$INTERFACE_BUTTON_DIM_SML", 20);
        own_tree::define("$INTERFACE_VAL_DIM_SML", 12);
        const test::Test_Window window(nullptr, 400, 500);
        Tool_DB_Class panel(one_.at("mode"));
        Boxs area;
        area.window = window.handle();
        area.width = 400;
        area.height = 500;
        panel.Resize(&area);
        size_t step = 0;
        for (const json& action : one_.at("actions")) {
            SCOPED_TRACE("action " + std::to_string(step));
            own_tree::take_calls();
            if (action[0] == "update")
                panel.Update(action[1].get<unsigned long long>());
            else
                press(panel, action[0] == "select_all" ? panel.select_all : panel.select_none);
            const json& after = expected()[step++];
            EXPECT_EQ(taken_calls(), calls_of(after.at("calls")));
            EXPECT_EQ(panel.nb, after.at("nb"));
            EXPECT_EQ(all_of(panel, &DB_List::select), after.at("select").get<Numbers>());
            EXPECT_EQ(all_of(panel, &DB_List::state), after.at("state").get<Numbers>());
        }
    }

    static void press(Tool_DB_List& panel, const Buttons& button)
    {
        RECT client{};
        GetClientRect(button.window, &client);
        POINT place{button.x + button.width / 2, client.bottom - 1 - button.y - button.height / 2};
        ClientToScreen(button.window, &place);
        YCursor_X = place.x;
        YCursor_Y = place.y;
        EXPECT_EQ(panel.Click(18), 1);
    }
};

class Edit_Layout_Case : public Vector_Case {
    using Vector_Case::Vector_Case;
    void TestBody() override
    {
        Given_Rows panel(one_.at("rows"));
        EXPECT_EQ(db::number_diagram(panel.nb, panel.list_pt).lines, expected().at("count"));
        EXPECT_EQ(all_of(panel, &DB_List::line), expected().at("lines").get<Numbers>());
        for (const json& hit : expected().at("hits"))
            EXPECT_EQ(db::hit_in_diagram({hit[0], hit[1]}, panel.nb, panel.list_pt), hit[2]) << hit;
    }
};

// The panel in edit mode over a tree, and where the handles of its boxes are.
class Edit_Case : public Vector_Case {
    using Vector_Case::Vector_Case;

protected:
    void lay_out(Tool_DB_Class& panel)
    {
        Boxs area;
        area.window = window_.handle();
        area.width = 1600;
        area.height = 1200;
        panel.Resize(&area);
        panel.Update(0x402);
        own_tree::take_calls();
    }

    // At a box's left edge is the handle to its parent, at its right one that to its children.
    void point_at(const Tool_DB_Class& panel, const std::string& id, int x) const
    {
        for (int i = 0; i < panel.nb; ++i) {
            if (panel.list_pt[i].object == addresses_.at(id))
                return point(panel, 330 * panel.list_pt[i].level + x, 50 * panel.list_pt[i].line + 30);
        }
        FAIL() << id << " has no row";
    }

    int click(Tool_DB_Class& panel, int up_down)
    {
        return DB_Edit_Click_DB(
            panel.mode, &panel.list_box, up_down, panel.nb, panel.list_pt, &panel.vertical, &panel.horizontal);
    }

    static json tree_of(const Strato_2D& object)
    {
        json children = json::array();
        for (int i = 0; i < object.Child_Get_Nb(); ++i)
            children.push_back(tree_of(*object.Child_Get_Pt(i)));
        return {{"name", object.Name_Get()}, {"children", children}};
    }

    static json tree_of(const json& node)
    {
        json children = json::array();
        for (const json& child : node.at("children"))
            children.push_back(tree_of(child));
        return {{"name", node.at("name")}, {"children", children}};
    }

    void expect_tree() const
    {
        const auto* root = static_cast<Strato_2D*>(objects_.at(one_.at("root").at("id")));
        EXPECT_EQ(tree_of(*root), tree_of(expected().at("root")));
    }

    std::vector<std::string> expected_calls() const
    {
        auto calls = calls_of(expected().at("calls"));
        for (std::string& call : calls) {
            const std::string mark = " 80 8 268435456";
            if (call.ends_with(mark))
                call.replace(call.size() - mark.size(), mark.size(), " 80 of 8 mask 268435456");
        }
        return calls;
    }

private:
    const test::Test_Window window_{nullptr, 1600, 1200};
};

class Edit_Drop_Case : public Edit_Case {
    using Edit_Case::Edit_Case;
    void TestBody() override
    {
        constexpr int to_children = 250;
        build_tree();
        Tool_DB_Class panel(one_.at("mode"));
        lay_out(panel);
        const json& action = one_.at("action");
        const json& sources = action.at("sources");
        if (sources.size() == 1)
            point_at(panel, sources[0], 0);
        else
            point_at(panel, parent_of(sources[0]), to_children);
        EXPECT_EQ(click(panel, 18), 1);
        point_at(panel, action.at("target"), to_children);
        EXPECT_EQ(click(panel, 0), expected().at("result"));
        EXPECT_EQ(own_tree::take_calls(), expected_calls());
        expect_tree();
    }

    std::string parent_of(const std::string& id) const
    {
        const auto* parent = static_cast<Strato_2D*>(objects_.at(id))->Parent_Get_Pt();
        const auto is_parent = [&](const auto& entry) { return entry.second == parent; };
        return std::find_if(objects_.begin(), objects_.end(), is_parent)->first;
    }
};

class Edit_Delete_Case : public Edit_Case {
    using Edit_Case::Edit_Case;
    void TestBody() override
    {
        build_tree();
        Tool_DB_Class panel(one_.at("mode"));
        lay_out(panel);
        point_at(panel, one_.at("action").at("object"), 125);
        EXPECT_EQ(DB_Edit_Key_DB(
                      panel.mode, &panel.list_box, 2094, panel.nb, panel.list_pt, &panel.vertical, &panel.horizontal),
            expected().at("result"));
        EXPECT_EQ(own_tree::take_calls(), expected_calls());
        expect_tree();
    }
};

using Make = Vector_Case* (*)(const json& one);

template <class Case>
Vector_Case* make(const json& one)
{
    return new Case(one);
}

const std::map<std::string, Make> makers{{"class_create", make<Create_Case>}, {"class_select", make<Select_Case>},
    {"file", make<File_Case>}, {"roll_up", make<Roll_Up_Case>}, {"browse", make<Browse_Case>},
    {"widget", make<Widget_Case>}, {"edit_layout", make<Edit_Layout_Case>}, {"edit_drop", make<Edit_Drop_Case>},
    {"edit_delete", make<Edit_Delete_Case>}};

int register_cases(const std::string& folder)
{
    std::ifstream file(folder + "/db.json");
    const json cases = json::parse(file, nullptr, false);
    if (!cases.is_object() || !cases.contains("cases") || cases["cases"].empty()) {
        std::cerr << folder << "/db.json cannot be read as a list of cases.\n";
        return 1;
    }
    for (const json& one : cases["cases"]) {
        const std::string name = one.at("name"), type = one.at("type");
        if (const auto maker = makers.find(type); maker != makers.end())
            testing::RegisterTest(type.c_str(), name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                [one, make_case = maker->second]() -> Vector_Case* { return make_case(one); });
    }
    return 0;
}

}

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const char* folder = count > 1 ? arguments[1] : std::getenv("VETRA_VECTORS");
    if (folder && register_cases(folder) != 0)
        return 1;
    return RUN_ALL_TESTS();
}
