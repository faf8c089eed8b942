#include "hostkit/gadgets/select_chooser.h"

#include "hostkit/gadgets/opened_list.h"

#include <utility>

namespace hostkit {

namespace {

Select_Chooser& present_chooser()
{
    static Select_Chooser chooser;
    return chooser;
}

}

Select_Chooser Set_Select_Chooser(Select_Chooser chooser)
{
    return std::exchange(present_chooser(), std::move(chooser));
}

int Choose_Item(const Selects& select)
{
    const Select_Chooser& chooser = present_chooser();
    return chooser ? chooser(select) : Opened_List(select).Run();
}

}
