#include "workbench/shell/database_dock.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/tree.h"
#include "platform/qt/window_widget.h"
#include "workbench/model/session.h"
#include "workbench/shell/theme.h"

#include <algorithm>
#include <QAction>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <string>

namespace workbench {

namespace {

constexpr int images = 2; // the dimension of the tree that is listed
constexpr int wideEnough = 1200;
constexpr unsigned long long treeBits = 0x600;

int rowsOf(const Strato_2D* object)
{
    int rows = 1;
    for (int i = 0; i < object->Child_Get_Nb(); ++i)
        rows += rowsOf(object->Child_Get_Pt(i));
    return rows;
}

// Files that follow one another in a folder have one row for it.
int rowsOfFiles()
{
    const auto count = hostkit::Variable<unsigned short>("$DB_2D_FILE_NB");
    File_Record* const* files = hostkit::Array_Variable<File_Record*>("$DB_2D_FILE_PT");
    int rows = 0;
    std::string last;
    for (unsigned i = 0; i < count; ++i) {
        const std::string path = files[i]->path;
        const std::string folder = path.substr(0, path.rfind('/') + 1);
        rows += (i == 0 || folder != last) + 1 + files[i]->nb_frames;
        last = folder;
    }
    return rows;
}

}

// "Select None" empties the window without a word; it is asked after each click.
DatabaseDock::DatabaseDock(Session& session, QWidget* parent)
    : QWidget(parent), session_(session),
      classes_(nullptr, {.clicked = [this](int) { session_.followWindow(); }}, int(images)),
      files_(nullptr, {.clicked = [this](int) { session_.followWindow(); }}, int(images)),
      classWidget_(Widget_From_Window(classes_.window())), fileWidget_(Widget_From_Window(files_.window())),
      tabs_(new QTabWidget), toggle_(new QAction(tr("&Database"), this)), keys_({&classes_.host(), &files_.host()})
{
    classes_.host().Set_Look(theme::listLook());
    files_.host().Set_Look(theme::listLook());
    tabs_->addTab(classWidget_, tr("Studies"));
    tabs_->addTab(fileWidget_, tr("Files"));
    tabs_->setDocumentMode(true);
    tabs_->tabBar()->setFocusPolicy(Qt::NoFocus);
    tabs_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabs_);
    toggle_->setCheckable(true);
    toggle_->setShortcut(QKeySequence(tr("D")));
    connect(toggle_, &QAction::toggled, this, &QWidget::setVisible);
    connect(toggle_, &QAction::triggered, this, [this] { isChosen_ = true; });
    setVisible(false);
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
}

void DatabaseDock::showFiles()
{
    tabs_->setCurrentWidget(fileWidget_);
}

void DatabaseDock::followWidth(int width)
{
    if (!isChosen_)
        toggle_->setChecked(width >= wideEnough);
}

void DatabaseDock::layOut()
{
    classes_.host().Lay_Out();
    files_.host().Lay_Out();
}

// The panels have heard of the change before this does.
void DatabaseDock::hostChanged(unsigned long long flags)
{
    if (!(flags & treeBits) || hasTold_)
        return;
    const int missing = std::max(rowsOf(hostkit::Root_2D()) - classes().nb, rowsOfFiles() - files().nb);
    if (missing <= 0)
        return;
    hasTold_ = true;
    emit rowsLeftOut(missing);
}

}
