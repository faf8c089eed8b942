#pragma once

#include "tests/tools/grid_panel_fixture.h"
#include "tools/tool_marker.h"

#include <cstdlib>
#include <cstring>

/// Marker panels, and what the host's variables want them to show. There are 16 markers.
class MarkerPanel : public GridPanel {
protected:
    static constexpr unsigned marked_area = 66 | 0x100000;

    MarkerPanel() { set_count(16); }

    static void set_count(int count)
    {
        hostkit::Variable<unsigned short>("$MARKER_NB") = static_cast<unsigned short>(count);
    }
    static void set_current(int marker)
    {
        hostkit::Variable<unsigned short>("$MARKER_CUR") = static_cast<unsigned short>(marker);
    }
    static unsigned& color(int marker) { return hostkit::Array_Variable<unsigned>("$MARKER_COLOR")[marker]; }
    static unsigned char& enabled(int marker)
    {
        return hostkit::Array_Variable<unsigned char>("$MARKER_ENABLE")[marker];
    }
    static char*& label(int marker) { return hostkit::Array_Variable<char*>("$MARKER_LABEL")[marker]; }

    /// Null takes the name away.
    static void set_label(int marker, const char* name)
    {
        std::free(label(marker));
        label(marker) = name ? strdup(name) : nullptr;
    }
    static std::string label_text(int marker) { return label(marker) ? label(marker) : "(none)"; }

    int count() const override { return hostkit::Variable<unsigned short>("$MARKER_NB"); }

    test::Row_Look usual(int marker) const override
    {
        const unsigned word = color(marker);
        return {label(marker) ? label(marker) : std::to_string(marker),
            {GetRValue(word), GetGValue(word), GetBValue(word)}};
    }

    std::vector<std::string> traces() const { return reports.texts(15); }
};
