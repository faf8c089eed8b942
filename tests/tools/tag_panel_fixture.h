#pragma once

#include "tests/tools/grid_panel_fixture.h"
#include "tools/tool_tag.h"

/// Tag panels, and what the host's variables want them to show.
class TagPanel : public GridPanel {
protected:
    int count() const override { return hostkit::Variable<unsigned short>("$TAG_NB"); }

    test::Row_Look usual(int tag) const override
    {
        const char* label = hostkit::Tag_Label(static_cast<unsigned>(tag));
        const Colors color = tag == 0 ? Colors{170, 170, 170} : hostkit::Tag_Color(static_cast<unsigned>(tag));
        return {label ? label : std::to_string(tag), color};
    }

    std::vector<std::string> traces() const { return reports.texts(16); }
};
