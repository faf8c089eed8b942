#pragma once

class QWidget;

namespace workbench {

/// Shows what mouse and keys do. The window stays open beside the work until it is closed.
void showKeyHelp(QWidget* parent);

}
