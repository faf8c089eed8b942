#include "db/scroll_range.h"

#include <algorithm>
#include <tuple>

namespace db {

bool keep_within(Sliders& bar, int visible, int content)
{
    const float most = static_cast<float>(std::max(content - visible, 0));
    if (!(bar.value > most))
        return false;
    bar.value = most;
    return true;
}

void set_range(Sliders& bar, int visible, int content, const Bar_Looks& looks)
{
    const auto before = std::tuple(bar.state, bar.maximum, bar.thumb);
    if (content <= visible) {
        bar.value = bar.minimum;
        bar.state = looks.idle;
    } else {
        bar.state = looks.active;
        bar.Larg_Adjust(static_cast<float>(visible), static_cast<float>(content));
        bar.maximum = static_cast<float>(content - visible);
    }
    if (before != std::tuple(bar.state, bar.maximum, bar.thumb))
        bar.Init(nullptr);
}

}
