#include "tests/tools/propagate_panel_fixture.h"

#include "hostkit/gadgets/select_chooser.h"

using namespace test;
using hostkit::Variable;

PropagatePanel::PropagatePanel() : reference_window_(make_reference_window())
{
    calls.clear();
    carry_result = 1;
    Flag_Trace = -1;
    YKey = 0;
    frames = make_series(5);
    window = hostkit::Window_Add("images");
    show(frames[2]);
}

PropagatePanel::~PropagatePanel()
{
    Flag_Trace = -1;
    hostkit::Set_Select_Chooser({});
    DestroyWindow(reference_window_);
    hostkit::Tree_Reset();
}

std::vector<Strato_2D*> PropagatePanel::make_series(int frames)
{
    Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "T1", .title = "Series"});
    std::vector<Strato_2D*> made;
    for (int i = 0; i < frames; ++i)
        made.push_back(hostkit::Frame_Add(series, {.class_a = hostkit::frame_class, .magic = hostkit::frame_magic}));
    return made;
}

void PropagatePanel::show(Strato_2D* frame)
{
    Fct_Change_Child(window, frame, nullptr);
    broadcasts();
}

int PropagatePanel::carry(void* from, void* to)
{
    calls.push_back({from, to});
    return carry_result;
}

void PropagatePanel::prepare(Tool_Propagate& panel, Extent place)
{
    panel.Set(carry);
    lay_out(panel, place);
    panel.Update(everything);
    reports.clear();
}

void PropagatePanel::lay_out(Tool_Propagate& panel, Extent place, short border)
{
    set_area(area, main_window(), place, 66, border);
    EXPECT_EQ(panel.Resize(&area), 1);
    panel.Draw();
    reports.clear();
}

Extent PropagatePanel::down() const
{
    const int space = Variable<short>("$INTERFACE_SPACE_DIM");
    const int quarter = (area.width - 4 * space) / 4;
    return {area.x + space, area.y + space, quarter, Variable<short>("$INTERFACE_LIST_DIM_SML")};
}

Extent PropagatePanel::list() const
{
    const Extent first = down();
    const int space = Variable<short>("$INTERFACE_SPACE_DIM");
    return {first.x + first.width + space, first.y, 2 * first.width, first.height};
}

Extent PropagatePanel::up() const
{
    const Extent second = list();
    const int space = Variable<short>("$INTERFACE_SPACE_DIM");
    return {second.x + second.width + space, second.y, second.width / 2, second.height};
}

int PropagatePanel::click_at(Tool_Propagate& panel, Place place, int up_down)
{
    point(main_window(), place);
    return panel.Click(up_down);
}

int PropagatePanel::press_at(Tool_Propagate& panel, Place place)
{
    show(frames[2]);
    panel.Update(frame_changed);
    hostkit::Set_Select_Chooser([](const Selects&) { return -1; });
    return click_at(panel, place);
}

int PropagatePanel::choose(Tool_Propagate& panel, int index)
{
    hostkit::Set_Select_Chooser([index](const Selects&) { return index; });
    return click_at(panel, middle(list()));
}

int PropagatePanel::press_key(Tool_Propagate& panel, int key)
{
    point_at_list();
    YKey = key;
    const int used = panel.Keyboard(key);
    YKey = 0;
    return used;
}

void PropagatePanel::leave(Tool_Propagate& panel)
{
    point(main_window(), {700, 700});
    panel.Motion(0);
    panel.Leave();
}

bool PropagatePanel::shows_list(int index, bool greyed)
{
    Selects reference;
    place_reference(reference, area, list());
    reference.border = area.border;
    reference.state = greyed ? 8483 : 8448;
    reference.arrow = Variable<short>("$INTERFACE_LIST_DIM_ARROW");
    reference.Set_Name(" Frame: ");
    if (index >= 0) {
        reference.Grow(1, 0);
        reference.Set_Item(0, std::to_string(index + 1).c_str());
    }
    reference.Init(reference_window_);
    reference.Draw();
    return picture(main_window(), list()) == picture(reference_window_, list());
}

bool PropagatePanel::shows_button(const char* name, Extent place, bool greyed)
{
    Buttons reference;
    place_reference(reference, area, place);
    reference.border = area.border;
    reference.state = greyed ? 35 : 0;
    reference.Set_Name(name);
    reference.Init(reference_window_);
    reference.Draw();
    return picture(main_window(), place) == picture(reference_window_, place);
}
