#include "workbench/model/fresh_host.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "hostkit/structures/tree.h"

namespace workbench {

FreshHost::FreshHost()
{
    hostkit::Tree_Reset();
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();

    constexpr unsigned short radii[] = {1, 2, 4, 6, 8, 12, 16, 20};
    hostkit::Brushes_Set(radii);
    hostkit::Variable<unsigned short>("$BRUSH_CUR") = 2;
    hostkit::Variable<unsigned short>("$TAG_CUR") = 1;
}

}
