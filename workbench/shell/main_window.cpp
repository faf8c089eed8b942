#include "workbench/shell/main_window.h"

#include "workbench/shell/database_dock.h"
#include "workbench/shell/menus.h"
#include "workbench/shell/opacity_row.h"
#include "workbench/shell/status_line.h"
#include "workbench/shell/tag_dialog.h"
#include "workbench/shell/theme.h"
#include "workbench/shell/tool_column.h"
#include "workbench/shell/tool_panels.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSignalBlocker>
#include <QSlider>
#include <QSplitter>
#include <QVBoxLayout>

namespace workbench {

MainWindow::MainWindow(Session& session)
    : session_(session), files_(session, *this), view_(new ImageView(session)), slices_(new QSlider(Qt::Horizontal)),
      splitter_(new QSplitter), database_(new DatabaseDock(session)), column_(new ToolColumn), opacity_(new OpacityRow),
      status_(new StatusLine)
{
    splitter_->addWidget(database_);
    splitter_->addWidget(column_);
    splitter_->addWidget(makeViewSide());
    splitter_->setStretchFactor(2, 1);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(theme::smallSpacing);
    setCentralWidget(splitter_);
    setStatusBar(status_);
    setAcceptDrops(true);
    resize(1280, 860);

    theme::setInterfaceSize(theme::interfaceSizes[0]);
    panels_ = std::make_unique<ToolPanels>(session, *column_, files_.worker());
    column_->addSection(tr("Overlay"), opacity_);
    menus_ = std::make_unique<Menus>(*this, session, files_, *view_, *database_);
    connect(menus_.get(), &Menus::interfaceSizeChosen, this, &MainWindow::setInterfaceSize);
    connect(menus_.get(), &Menus::tagEditChosen, this, &MainWindow::editTag);
    connect(menus_.get(), &Menus::propagateChosen, &panels_->propagation(), &PropagateSection::propagate);
    connect(menus_.get(), &Menus::propagateOverChosen, &panels_->propagation(), &PropagateSection::propagateOver);
    connect(&panels_->propagation(), &PropagateSection::said, status_, &StatusLine::say);
    connect(&panels_->histogram(), &HistogramSection::exportWanted, this,
        [this] { files_.chooseHistogramTarget(panels_->histogram().histogram()); });
    graphExport_.emplace(files_, panels_->histogram().histogram());
    connect(&reports_, &Reports::reported, this, &MainWindow::showReport);
    connectFiles();
    connectSession();
    connectDatabase();
    showTitle();
    showFrames();
    opacity_->setOpacity(session.overlayOpacity());
    view_->setFocus();
}

MainWindow::~MainWindow() = default;

QWidget* MainWindow::makeViewSide()
{
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(view_, 1);
    auto* bar = new QVBoxLayout;
    bar->setContentsMargins(theme::spacing, theme::smallSpacing, theme::spacing, theme::smallSpacing);
    bar->addWidget(slices_);
    layout->addLayout(bar);
    slices_->setFocusPolicy(Qt::NoFocus);
    slices_->setToolTip(tr("Slice"));
    return side;
}

void MainWindow::connectFiles()
{
    connect(&files_, &Files::said, status_, &StatusLine::say);
    connect(&files_.worker(), &Worker::started, status_, &StatusLine::showWork);
    connect(&files_.worker(), &Worker::progressed, status_, &StatusLine::showProgress);
    connect(&files_.worker(), &Worker::finished, status_, &StatusLine::endWork);
    connect(status_, &StatusLine::cancelled, &files_.worker(), &Worker::cancel);
}

void MainWindow::connectSession()
{
    connect(&session_, &Session::titleChanged, this, &MainWindow::showTitle);
    connect(&session_, &Session::imageChanged, this, [this] {
        showTitle();
        showFrames();
    });
    connect(&session_, &Session::frameChanged, this, &MainWindow::showFrames);
    connect(&session_, &Session::opacityChanged, opacity_, &OpacityRow::setOpacity);
    connect(&session_, &Session::message, status_, &StatusLine::say);
    connect(&session_, &Session::labelsChanged, this, &MainWindow::showVoxel);
    connect(&session_, &Session::tagsChanged, this, &MainWindow::showVoxel);

    connect(opacity_, &OpacityRow::opacityChosen, &session_, &Session::setOverlayOpacity);
    connect(slices_, &QSlider::valueChanged, &session_, &Session::setFrame);
    connect(view_, &ImageView::strokeRefused, status_, &StatusLine::say);
    connect(view_, &ImageView::pointerMoved, this, [this](const std::optional<Voxel>& voxel) {
        voxel_ = voxel;
        showVoxel();
    });
}

void MainWindow::connectDatabase()
{
    connect(database_, &DatabaseDock::rowsLeftOut, this, [this](int count) {
        files_.tell(
            tr("The database cannot list everything that is open: %1 rows are left out. Close series to see them.")
                .arg(count));
    });
    database_->followWidth(width());
}

// ------------------------------------------------------------------------------------------------- showing the state

// The star stands behind what is not saved; where that is of another series, behind the program.
void MainWindow::showTitle()
{
    const bool isOfThis = session_.isImageWorkModified() || session_.isTableModified();
    const QString path = session_.labelPath();
    QString program = QStringLiteral("Vetra"), work;
    if (!path.isEmpty())
        work = QFileInfo(path).fileName();
    else if (isOfThis)
        work = session_.hasImage() ? unsavedWork() : tr("tags");
    if (session_.isModified())
        (isOfThis ? work : program) += QStringLiteral("[*]");
    QStringList parts{session_.hasImage() ? session_.imageName() : QString(), work, program};
    parts.removeAll(QString());
    setWindowTitle(parts.join(QStringLiteral(" \u2014 ")));
    setWindowModified(session_.isModified());
}

QString MainWindow::unsavedWork() const
{
    const bool onlyMarkers = session_.markers().isModified() && !session_.areLabelsModified();
    return onlyMarkers ? tr("markers") : tr("labels");
}

void MainWindow::showFrames()
{
    const QSignalBlocker quiet(slices_);
    slices_->setRange(0, std::max(0, session_.frameCount() - 1));
    slices_->setValue(session_.frame());
    slices_->setEnabled(session_.frameCount() > 1);
}

void MainWindow::showVoxel()
{
    if (!voxel_ || !session_.hasImage() || !session_.volume().contains(voxel_->x, voxel_->y, voxel_->z))
        return status_->clearVoxel();
    const auto [x, y, z] = *voxel_;
    const auto place = session_.volume().geometry.position(x, y, z);
    const auto number = [](double value) { return QString::number(value, 'f', 1); };
    status_->showVoxel({
        .index = QStringLiteral("%1, %2, %3").arg(x).arg(y).arg(z),
        .position = QStringLiteral("%1, %2, %3 mm").arg(number(place[0]), number(place[1]), number(place[2])),
        .value = QString::fromStdString(document::value_text(session_.volume(), x, y, z)),
        .tag = session_.tagTitle(session_.labels().at(x, y, z)),
    });
}

void MainWindow::showReport(int level, const QString& text)
{
    constexpr int concernsUser = 2;
    status_->say(text);
    if (level <= concernsUser)
        files_.tell(text);
}

void MainWindow::editTag()
{
    const unsigned tag = session_.currentTag();
    if (tag == 0)
        return status_->say(tr("The background has no name, colour or grey values of its own. Choose a tag to edit."));
    auto* dialog = new TagDialog(session_, tag, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void MainWindow::setInterfaceSize(int percent)
{
    theme::setInterfaceSize(percent);
    const auto scaled = [percent](const QWidget* side) { return side->sizeHint().width() * percent / 100; };
    splitter_->setSizes({scaled(database_), scaled(column_), width()});
    panels_->layOut();
    database_->layOut();
}

// ------------------------------------------------------------------------------------------------------------ events

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (mayClose_ || (!files_.busy() && !session_.isModified()))
        return event->accept();
    event->ignore();
    files_.worker().cancel();
    files_.whenNothingIsLost([this] {
        mayClose_ = true;
        close();
    });
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    database_->followWidth(width());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    event->acceptProposedAction();
    if (paths.isEmpty())
        return files_.tell(tr("Only files and folders of this computer can be opened."));
    files_.open(paths);
}

// Wherever the focus is, a key that nobody wanted is for the image.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    passToView(event);
}

void MainWindow::keyReleaseEvent(QKeyEvent* event)
{
    passToView(event);
}

// What the view leaves comes back here, as to its parent.
void MainWindow::passToView(QKeyEvent* event)
{
    event->ignore();
    if (view_->hasFocus())
        return;
    const bool accepted = static_cast<QObject*>(view_)->event(event) && event->isAccepted();
    event->setAccepted(accepted);
}

}
