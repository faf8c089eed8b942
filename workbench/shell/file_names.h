#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <filesystem>

namespace workbench {

inline std::filesystem::path systemPath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

inline QString userPath(const std::filesystem::path& path)
{
    return QString::fromStdU16String(path.u16string());
}

/// The name without its folder.
inline QString fileName(const QString& path)
{
    return QFileInfo(QDir::cleanPath(path)).fileName();
}

}
