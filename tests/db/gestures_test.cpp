#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "hostkit/structures/files.h"
#include "hostkit/structures/tree.h"
#include "tests/db/choice.h"
#include "tests/db/provider_models.h"

// Thousands of random window messages, keys and changes of the host: after each of them the list, the host and what was
// sent are what the rules say.

using namespace test;

namespace {

void* selection_word()
{
    return reinterpret_cast<void*>(uintptr_t{4});
}

bool is_selected(const Strato* object)
{
    return object->Flag_Get_Bit(16, selection_word(), 512) != 0;
}

void set_selected(Strato* object, bool selected)
{
    if (selected)
        object->Flag_Set_On(16, selection_word(), 512);
    else
        object->Flag_Set_Off(16, selection_word(), 512);
}

class DatabaseGestures : public Panel_Host {
protected:
    DatabaseGestures() { hostkit::Window_Add("w"); }

    // Sends events to a panel and to its model; `agree` compares their hosts, `select` changes both.
    template <class Panel, class Model, class Agree, class Select>
    void play(Panel& slot, Model& model, Choice& choice, int events, const Agree& agree, const Select& select)
    {
        hold_keys(false, false);
        lay_out(slot, model, 300, 260);
        tell(slot, model, 0x402);
        tell(slot, model, 0x100000);
        for (int i = 0; i < events && !HasFailure(); ++i) {
            event(slot, model, choice, select);
            SCOPED_TRACE("event " + std::to_string(i) + ": " + done_);
            if (model.bar_is_held) {
                model.down.value = slot.panel().vertical.value;
                model.across.value = slot.panel().horizontal.value;
            }
            expect_same(slot.panel(), model);
            EXPECT_EQ(broadcasts(), model.take_words());
            agree();
            if (i % 50 == 0)
                expect_picture_is_whole(slot);
        }
        release(slot.window(), {0, 0});
    }

private:
    bool button_is_down_ = false;
    std::string done_; // the last event

    void note(const std::string& what, Place place)
    {
        done_ = what + " at " + std::to_string(place.x) + ", " + std::to_string(place.y);
    }

    template <class Panel, class Model>
    void lay_out(Panel& slot, Model& model, int width, int height)
    {
        MoveWindow(slot.window(), 0, 0, width, height, TRUE);
        ShowWindow(slot.window(), SW_SHOW);
        model.lay_out(width, height);
        take_width(slot.panel(), model);
    }

    // How wide texts are is the fonts' business.
    static void take_width(const Tool_DB_List& panel, Browser_Model& model)
    {
        model.across.most = panel.horizontal.Active() ? panel.horizontal.maximum : 0;
        model.across.go_to(model.across.value);
    }

    template <class Panel, class Model>
    void tell(Panel& slot, Model& model, unsigned long long word)
    {
        Fct_Update(word, nullptr, nullptr, nullptr);
        EXPECT_EQ(broadcasts(), std::vector{word}) << "nothing is sent in answer";
        if (word & 0x600)
            model.rebuild();
        else
            model.tell(word);
        take_width(slot.panel(), model);
    }

    template <class Panel, class Model, class Select>
    void event(Panel& slot, Model& model, Choice& choice, const Select& select)
    {
        const int kind = choice.from(0, 99);
        if (kind < 50) {
            mouse(slot.window(), model, choice);
        } else if (kind < 75) {
            const Place place = near_the_list(model, choice);
            note("move", place);
            move(slot.window(), place);
            model.move(place);
        } else if (kind < 83) {
            const Place place = near_the_list(model, choice);
            const int notches = choice.of(std::array{-5, -1, 1, 2});
            note("wheel", place);
            turn_wheel(slot.window(), place, 120 * notches);
            model.turn_wheel(place, notches);
        } else if (kind < 92) {
            done_ = "keys";
            model.shift = choice.one_in(3);
            model.control = choice.one_in(3);
            hold_keys(model.shift, model.control);
        } else if (kind < 97) {
            done_ = "selection of the host";
            select();
            tell(slot, model, choice.of(std::array{0x102ull, 0x100000ull, 0x101ull, 0x104ull, 0x100ull, 0x2ull}));
        } else if (kind < 98) {
            done_ = "tree";
            tell(slot, model, choice.of(std::array{0x200ull, 0x401ull, 0x402ull}));
        } else {
            done_ = "layout";
            lay_out(slot, model, choice.of(std::array{120, 220, 300}), choice.of(std::array{180, 260, 790}));
        }
    }

    void mouse(HWND window, Browser_Model& model, Choice& choice)
    {
        const Place place = near_the_list(model, choice);
        note(button_is_down_ ? "release" : "press", place);
        if (button_is_down_) {
            release(window, place);
            model.release(place);
        } else {
            press(window, place, choice.of(std::array{Button::left, Button::left, Button::middle, Button::right}));
            model.press(place);
        }
        button_is_down_ = !button_is_down_;
    }

    static Place within(const Model_Area& area, Choice& choice)
    {
        return {choice.from(area.x - 1, area.x + area.width), choice.from(area.y - 1, area.y + area.height)};
    }

    static Place near_the_list(const Browser_Model& model, Choice& choice)
    {
        switch (choice.from(0, 19)) {
        case 0:
            return within(model.all_button, choice);
        case 1:
            return within(model.none_button, choice);
        case 2:
            return within(model.down_bar, choice);
        case 3:
            return within(model.across_bar, choice);
        case 4:
        case 5:
            return {choice.from(-30, 330), choice.from(-30, 820)};
        case 6:
        case 7:
        case 8:
        case 9:
            return lead(model, choice);
        default:
            return within(model.list_box, choice);
        }
    }

    // On the lead of a row, wherever it is.
    static Place lead(const Browser_Model& model, Choice& choice)
    {
        const Model_Row& row = model.rows[static_cast<size_t>(choice.from(0, static_cast<int>(model.rows.size()) - 1))];
        if (row.line == 65535)
            return within(model.list_box, choice);
        return {model.list_box.x + 4 - static_cast<int>(model.across.value) + 20 * row.level + choice.from(0, 20),
            model.list_box.y + model.list_box.height + static_cast<int>(model.down.value) - 18 * row.line -
                choice.from(9, 27)};
    }

    static void expect_same(const Tool_DB_List& panel, const Browser_Model& model)
    {
        ASSERT_EQ(panel.nb, static_cast<int>(model.rows.size()));
        for (int i = 0; i < panel.nb; ++i) {
            const DB_List& row = panel.list_pt[i];
            const Model_Row& rule = model.rows[static_cast<size_t>(i)];
            ASSERT_EQ(row.level, rule.level) << "row " << i;
            ASSERT_EQ(row.nb_child, rule.children) << "row " << i;
            ASSERT_EQ(row.state, rule.state()) << "row " << i;
            ASSERT_EQ(row.select, rule.select) << "row " << i;
            ASSERT_EQ(row.line, rule.line) << "row " << i;
        }
        EXPECT_EQ(panel.last_row, model.last_row);
        EXPECT_EQ(panel.vertical.value, model.down.value);
        EXPECT_EQ(panel.horizontal.value, model.across.value);
        EXPECT_EQ(panel.vertical.Active(), model.down.most > 0);
        if (panel.vertical.Active()) {
            EXPECT_EQ(panel.vertical.maximum, model.down.most);
        }
    }

    // That nothing is left of what was painted bit by bit.
    template <class Panel>
    void expect_picture_is_whole(Panel& slot)
    {
        if (button_is_down_)
            return;
        const auto before = pixels(slot.window());
        slot.panel().Draw();
        EXPECT_TRUE(pixels(slot.window()) == before);
    }
};

// ------------------------------------------------------------------------------------------------ the host's objects

std::vector<Model_Object> random_tree(Choice& choice, int dimension)
{
    static constexpr std::array titles{"Study", "Series", "Image", "", "Acquisition", "Acquis", "Acqui", "Cuda_Volume"};
    const unsigned base = static_cast<unsigned>(dimension) * 0x1000;
    std::vector<Model_Object> tree(1);
    tree[0].title = "Root";
    const int size = choice.from(1, 36);
    while (static_cast<int>(tree.size()) < size) {
        const int parent = std::max(choice.from(-4, static_cast<int>(tree.size()) - 1), 0);
        Model_Object object;
        object.title = choice.one_in(3) ? choice.of(titles) : "Image";
        object.class_a = base + choice.of(std::array{0xFFFu, 0xFFFu, 0xFFFu, 0xFFDu, 0x010u});
        object.magic = choice.one_in(5) ? 0 : 0xAABA;
        object.parent = parent;
        tree[static_cast<size_t>(parent)].children.push_back(static_cast<int>(tree.size()));
        tree.push_back(object);
    }
    return tree;
}

Strato_1D* add(Strato_1D* parent, const hostkit::Object_Description& description)
{
    return parent ? hostkit::Object_1D_Add(parent, description) : hostkit::Root_1D();
}

Strato_2D* add(Strato_2D* parent, const hostkit::Object_Description& description)
{
    return parent ? hostkit::Object_2D_Add(parent, description) : hostkit::Root_2D();
}

Strato_3D* add(Strato_3D* parent, const hostkit::Object_Description& description)
{
    return parent ? hostkit::Object_3D_Add(parent, description) : hostkit::Root_3D();
}

template <class Object>
std::vector<Strato*> make(const std::vector<Model_Object>& tree)
{
    std::vector<Strato*> made;
    for (const Model_Object& object : tree) {
        auto* const parent =
            object.parent < 0 ? nullptr : static_cast<Object*>(made[static_cast<size_t>(object.parent)]);
        made.push_back(add(parent, {.name = std::to_string(made.size()),
                                       .title = object.title,
                                       .class_a = object.class_a,
                                       .magic = object.magic}));
    }
    return made;
}

class ClassGestures : public DatabaseGestures, public ::testing::WithParamInterface<int> {};

}

TEST_P(ClassGestures, FollowTheRules)
{
    const int dimension = GetParam();
    Choice choice(static_cast<unsigned>(dimension));
    for (int tree = 0; tree < 12 && !HasFailure(); ++tree) {
        SCOPED_TRACE("tree " + std::to_string(tree));
        hostkit::Tree_Reset();
        hostkit::Window_Add("w");
        Class_Model model(dimension, random_tree(choice, dimension));
        const auto objects = dimension == 1   ? make<Strato_1D>(model.objects)
                             : dimension == 2 ? make<Strato_2D>(model.objects)
                                              : make<Strato_3D>(model.objects);
        hostkit::Panel_Slot<Tool_DB_Class> slot(main_window(), {}, dimension);
        const auto* window = static_cast<const Strato_Window*>(Fct_Variable_Value("$WINDOW_CUR", {}, {}, {}));
        const auto agree = [&] {
            for (size_t i = 0; i < objects.size(); ++i)
                ASSERT_EQ(is_selected(objects[i]), model.objects[i].selected) << "object " << i;
            EXPECT_EQ(
                hostkit::Window_Frame(window), model.shown < 0 ? nullptr : objects[static_cast<size_t>(model.shown)]);
        };
        const auto select = [&] {
            for (size_t i = 0; i < objects.size(); ++i) {
                if (choice.one_in(3))
                    model.objects[i].selected = choice.one_in(2);
                set_selected(objects[i], model.objects[i].selected);
            }
        };
        play(slot, model, choice, 500, agree, select);
    }
}

INSTANTIATE_TEST_SUITE_P(Dimensions, ClassGestures, ::testing::Values(1, 2, 3));

TEST_F(DatabaseGestures, OnFilesFollowTheRules)
{
    Choice choice(4);
    for (int round = 0; round < 12 && !HasFailure(); ++round) {
        SCOPED_TRACE("files " + std::to_string(round));
        hostkit::Tree_Reset();
        hostkit::Window_Add("w");
        File_Model model;
        std::vector<File_Record*> records;
        for (int i = choice.from(1, 7); i > 0; --i) {
            Model_File file{choice.of(std::array{"/a/", "/b/", ""}), {}};
            std::vector<hostkit::Frame_Description> frames;
            for (int k = choice.from(0, 5); k > 0; --k) {
                file.frame_is_accessible.push_back(!choice.one_in(5));
                frames.push_back({{0x4354, 0, 64, 64, 1, 1}, file.frame_is_accessible.back()});
            }
            model.files.push_back(file);
            records.push_back(hostkit::File_Add(file.directory + "name.dcm", frames));
        }
        std::vector<Strato*> objects;
        for (int i = choice.from(0, 6); i > 0; --i) {
            const bool left_out = choice.one_in(4);
            auto* const series =
                hostkit::Object_2D_Add(hostkit::Root_2D(), {.title = left_out ? "Cuda_Volume" : "Series"});
            for (int k = choice.from(0, 5); k > 0; --k) {
                const int file = choice.from(0, static_cast<int>(records.size()) - 1), frame = choice.from(0, 5);
                auto* const object = hostkit::Frame_Add(series, {.class_a = 0x2FFF, .magic = 0xAABA});
                hostkit::Frame_Shows(object, records[static_cast<size_t>(file)], static_cast<unsigned short>(frame));
                model.views.push_back({file, frame, left_out});
                objects.push_back(object);
            }
        }
        hostkit::Panel_Slot<Tool_DB_File> slot(main_window(), {});
        const auto agree = [&] {
            for (size_t i = 0; i < objects.size(); ++i)
                ASSERT_EQ(is_selected(objects[i]), model.views[i].selected) << "object " << i;
        };
        const auto select = [&] {
            for (size_t i = 0; i < objects.size(); ++i) {
                if (choice.one_in(3))
                    model.views[i].selected = choice.one_in(2);
                set_selected(objects[i], model.views[i].selected);
            }
        };
        play(slot, model, choice, 500, agree, select);
    }
}
