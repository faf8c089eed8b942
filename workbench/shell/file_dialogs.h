#pragma once

#include <QStringList>

#include <functional>

class QWidget;

/// The dialogs that ask for files. They return at once; `chosen` is called when something was chosen.
namespace workbench {

using FilesChosen = std::function<void(const QStringList& paths)>;

void chooseImageFiles(QWidget& parent, const QString& folder, FilesChosen chosen);
void chooseImageFolder(QWidget& parent, const QString& folder, FilesChosen chosen);
void chooseLabelFile(QWidget& parent, const QString& folder, FilesChosen chosen);
void chooseTableFile(QWidget& parent, const QString& folder, FilesChosen chosen);

/// @param path  the name that is offered. A name without ending gets ".nii.gz", or ".label"
void chooseLabelTarget(QWidget& parent, const QString& path, FilesChosen chosen);
void chooseTableTarget(QWidget& parent, const QString& path, FilesChosen chosen);

/// For markers; a name without ending gets ".mrk.json"
void chooseMarkerFile(QWidget& parent, const QString& folder, FilesChosen chosen);
void chooseMarkerTarget(QWidget& parent, const QString& path, FilesChosen chosen);

/// The same for a histogram; a name without ending gets ".csv"
void chooseHistogramTarget(QWidget& parent, const QString& path, FilesChosen chosen);

}
