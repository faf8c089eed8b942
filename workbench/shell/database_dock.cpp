#include "workbench/shell/database_dock.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/tree.h"
#include "platform/qt/window_widget.h"
#include "workbench/model/session.h"
#include "workbench/shell/class_names.h"
#include "workbench/shell/drag_repeater.h"
#include "workbench/shell/theme.h"

#include <algorithm>
#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
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
    : QWidget(parent), session_(session), chooser_(new TreeChooser),
      trees_(new ClassTrees(ClassTrees::As::lists, [this] { session_.followWindow(); })),
      files_(nullptr, {.clicked = [this](int) { session_.followWindow(); }}, int(images)),
      fileWidget_(Widget_From_Window(files_.window())), tabs_(new QTabWidget),
      toggle_(new QAction(tr("&Show database"), this)), edit_(new QAction(tr("&Edit database"), this)),
      keys_(trees_->hosts(), [this](const QKeyEvent& event) { return takeKey(event); })
{
    files_.host().Set_Look(theme::listLook());
    new DragRepeater(*fileWidget_);
    tabs_->addTab(makeStudies(), tr("Studies"));
    tabs_->addTab(fileWidget_, tr("Files"));
    tabs_->setDocumentMode(true);
    tabs_->tabBar()->setFocusPolicy(Qt::NoFocus);
    tabs_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabs_);
    addActions();
    setVisible(false);
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    Fct_Update(hostkit::series_tree_changed, nullptr, nullptr, nullptr);
}

DatabaseDock::~DatabaseDock() = default;

void DatabaseDock::addActions()
{
    toggle_->setCheckable(true);
    toggle_->setShortcut(QKeySequence(tr("D")));
    connect(toggle_, &QAction::toggled, this, &QWidget::setVisible);
    connect(toggle_, &QAction::triggered, this, [this] { isChosen_ = true; });
    edit_->setCheckable(true);
    edit_->setShortcut(QKeySequence(tr("Shift+D")));
    edit_->setIconText(tr("Edit"));
    edit_->setToolTip(tr("Edit database: move, delete and rename what is in the trees"));
    connect(edit_, &QAction::toggled, this, &DatabaseDock::showEditor);
}

QWidget* DatabaseDock::makeStudies()
{
    auto* edit = new QToolButton;
    edit->setObjectName(QStringLiteral("editDatabase"));
    edit->setDefaultAction(edit_);
    edit->setFocusPolicy(Qt::NoFocus);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, theme::smallSpacing, 0);
    row->addWidget(chooser_, 1);
    row->addWidget(edit);
    auto* studies = new QWidget;
    auto* layout = new QVBoxLayout(studies);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(row);
    layout->addWidget(trees_, 1);
    connect(chooser_, &TreeChooser::chosen, trees_, &ClassTrees::setDimension);
    return studies;
}

// ---------------------------------------------------------------------------------------------------------- editing

void DatabaseDock::showEditor(bool shown)
{
    if (!shown) {
        if (editor_)
            editor_->close();
        return;
    }
    editor_ = new DatabaseEditor(session_, trees_->dimension(), window());
    editor_->addAction(edit_);
    connect(editor_, &QObject::destroyed, edit_, [this] {
        editor_.clear(); // it is none any more
        edit_->setChecked(false);
    });
    editor_->show();
}

Strato* DatabaseDock::chosen() const
{
    Strato* const clicked = trees_->chosen();
    if (!session_.databaseEdits().label(clicked).isEmpty())
        return clicked;
    return trees_->dimension() == images && session_.hasImage() ? session_.currentSeries()->object : nullptr;
}

void DatabaseDock::rename()
{
    chooseClassName(*window(), session_, chosen());
}

// Over a list these keys are the database's; without a step to take back they are the image's as everywhere.
bool DatabaseDock::takeKey(const QKeyEvent& event)
{
    QUndoStack& steps = session_.databaseEdits().steps();
    const auto is = [&](const char* keys) {
        return QKeySequence(tr(keys)).matches(QKeySequence(event.keyCombination())) == QKeySequence::ExactMatch;
    };
    if (is("F2"))
        rename();
    else if (is("Ctrl+Z") && steps.canUndo())
        steps.undo();
    else if ((is("Ctrl+Shift+Z") || is("Ctrl+Y")) && steps.canRedo())
        steps.redo();
    else if (is("Del")) // elsewhere it is the current marker's, which nobody means here
        emit session_.message(tr("Choose \"Edit database\" to take something out of the trees."));
    else
        return false;
    return true;
}

// -------------------------------------------------------------------------------------------------------- the lists

void DatabaseDock::showStudies()
{
    tabs_->setCurrentIndex(0);
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
    trees_->layOut();
    if (editor_)
        editor_->layOut();
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
