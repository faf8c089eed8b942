#pragma once

#include "hostkit/structures/tree.h"
#include "tests/tools/grid_panel_fixture.h"
#include "tools/tool_propagate.h"

/// A propagate panel over a window that shows a frame of a series, and what the panel must show.
class PropagatePanel : public test::Panel_Host {
protected:
    static constexpr test::Extent usual{10, 20, 216, 48}; // buttons of 50 pixels, a list of 100
    static constexpr unsigned long long frame_changed = test::bit(21);
    static constexpr unsigned long long everything = test::bit(60);

    /// What the host's function was called with.
    struct Call {
        void* from;
        void* to;
        bool operator==(const Call&) const = default;
    };

    PropagatePanel();
    ~PropagatePanel() override;

    /// A series, and its frames.
    static std::vector<Strato_2D*> make_series(int frames);

    /// Makes the window show a frame, and forgets the broadcast of it.
    void show(Strato_2D* frame);
    int shown_index() const { return frames.front()->Parent_Get_Pt()->Child_Get_Cur(window); }

    /// Installs the function, lays the panel out and lets it look for the frames.
    void prepare(Tool_Propagate& panel, test::Extent place = usual);
    void lay_out(Tool_Propagate& panel, test::Extent place = usual, short border = 2);

    /// Where the widgets have to be.
    test::Extent down() const;
    test::Extent list() const;
    test::Extent up() const;

    int click_at(Tool_Propagate& panel, test::Place place, int up_down = test::left_press);
    int press_up(Tool_Propagate& panel) { return click_at(panel, middle(up())); }
    int press_down(Tool_Propagate& panel) { return click_at(panel, middle(down())); }

    /// Presses a place; from a list that opens there nothing is chosen. The middle frame is shown before.
    int press_at(Tool_Propagate& panel, test::Place place);

    /// Presses the list, from which the user chooses an item.
    int choose(Tool_Propagate& panel, int index);

    /// A key over the list, recorded as a host does.
    int press_key(Tool_Propagate& panel, int key);
    void point_at_list() { test::point(main_window(), middle(list())); }

    /// Takes the pointer away, so that nothing is highlighted.
    void leave(Tool_Propagate& panel);

    bool shows_list(int index, bool greyed = false);
    bool shows_up(bool greyed) { return shows_button("Up", up(), greyed); }
    bool shows_down(bool greyed) { return shows_button("Down", down(), greyed); }

    std::vector<std::string> traces() const { return reports.texts(16); }

    static int carry(void* from, void* to);
    static inline std::vector<Call> calls;
    static inline int carry_result = 1;

    Strato_Window* window;
    std::vector<Strato_2D*> frames; // five; the third is shown
    Boxs area;

private:
    bool shows_button(const char* name, test::Extent place, bool greyed);

    HWND reference_window_;
};
