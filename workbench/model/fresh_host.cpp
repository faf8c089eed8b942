#include "workbench/model/fresh_host.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "hostkit/structures/tree.h"

#include <QDir>
#include <QFile>

namespace workbench {

namespace {

// Files are offered to be written there; the name is put behind it.
char* homeFolder()
{
    static QByteArray& folder = *new QByteArray(QFile::encodeName(QDir::homePath()));
    if (!folder.endsWith('/'))
        folder += '/';
    return folder.data();
}

}

FreshHost::FreshHost()
{
    hostkit::Tree_Reset();
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();

    constexpr unsigned short radii[] = {1, 2, 4, 6, 8, 12, 16, 20};
    hostkit::Brushes_Set(radii);
    hostkit::Variable<unsigned short>("$BRUSH_CUR") = 2;
    hostkit::Variable<unsigned short>("$TAG_CUR") = 1;
    hostkit::String_Variable("$DEFAULT_FILE_PATH") = homeFolder();
}

}
