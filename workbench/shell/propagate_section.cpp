#include "workbench/shell/propagate_section.h"

#include "platform/qt/window_widget.h"
#include "workbench/model/session.h"
#include "workbench/shell/quiet_row.h"
#include "workbench/shell/theme.h"
#include "workbench/shell/worker.h"

#include <memory>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace workbench {

namespace {

using document::CarryMode;

constexpr unsigned long long everything = 1ull << 60;

Session* carryingSession = nullptr; // the panel calls a plain function

int carry(void* from, void* to)
{
    return carryingSession &&
           carryingSession->propagate(static_cast<const Strato_2D*>(from), static_cast<const Strato_2D*>(to));
}

}

PropagateSection::PropagateSection(Session& session, Worker& worker, QWidget* parent)
    : QWidget(parent), session_(session), worker_(worker), slot_(nullptr, {}),
      panelWidget_(Widget_From_Window(slot_.window())), mode_(new QComboBox), count_(new QSpinBox),
      down_(new QPushButton(tr("Down"))), up_(new QPushButton(tr("Up")))
{
    carryingSession = &session;
    slot_.panel().Set(carry);
    slot_.host().Set_Look(theme::panelLook());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, theme::spacing, 0, 0);
    layout->setSpacing(theme::smallSpacing);
    layout->addWidget(panelWidget_);
    layout->addWidget(makeModeRow());
    layout->addWidget(makeOverRow());
    panelWidget_->show();

    connect(&session, &Session::imageChanged, this, &PropagateSection::followFrame);
    connect(&session, &Session::frameChanged, this, &PropagateSection::followFrame);
    connect(&session, &Session::carryModeChanged, this, &PropagateSection::followMode);
    layOut();
    followFrame();
    followMode();
    Fct_Update(everything, nullptr, nullptr, nullptr); // without its function the panel knew no frames
}

PropagateSection::~PropagateSection()
{
    carryingSession = nullptr;
}

QWidget* PropagateSection::makeModeRow()
{
    auto* row = new QWidget;
    auto* layout = rowIn(row);
    mode_->addItem(tr("Add"), static_cast<int>(CarryMode::add));
    mode_->addItem(tr("Replace"), static_cast<int>(CarryMode::replace));
    mode_->addItem(tr("Adapt to image"), static_cast<int>(CarryMode::adapt));
    mode_->setItemData(0, tr("Tags are carried only to where nothing is painted"), Qt::ToolTipRole);
    mode_->setItemData(1, tr("The carried tags become on the new slice what they are on this one"), Qt::ToolTipRole);
    mode_->setItemData(2, tr("As Add, but the tags follow the grey values of the new slice"), Qt::ToolTipRole);
    layout->addWidget(quiet(mode_, tr("How tags are carried to another slice")), 1);
    connect(mode_, &QComboBox::activated, this,
        [this](int index) { session_.setCarryMode(static_cast<CarryMode>(mode_->itemData(index).toInt())); });
    return row;
}

QWidget* PropagateSection::makeOverRow()
{
    constexpr int usual = 10, most = 9999;
    auto* row = new QWidget;
    auto* layout = rowIn(row);
    count_->setRange(1, most);
    count_->setValue(usual);
    layout->addWidget(new QLabel(tr("Over")));
    layout->addWidget(quiet(count_, tr("Over how many slices tags are carried at once")));
    layout->addWidget(new QLabel(tr("slices")));
    layout->addWidget(quiet(down_, tr("Carry the tags over that many earlier slices")), 1);
    layout->addWidget(quiet(up_, tr("Carry the tags over that many later slices")), 1);
    connect(down_, &QPushButton::clicked, this, [this] { propagateOver(-1); });
    connect(up_, &QPushButton::clicked, this, [this] { propagateOver(1); });
    return row;
}

void PropagateSection::layOut()
{
    panelWidget_->setFixedHeight(slot_.panel().Height());
    slot_.host().Lay_Out();
}

void PropagateSection::followFrame()
{
    const int last = session_.frameCount() - 1;
    count_->setEnabled(last > 0);
    down_->setEnabled(last > 0 && session_.frame() > 0);
    up_->setEnabled(session_.frame() < last);
}

void PropagateSection::followMode()
{
    mode_->setCurrentIndex(mode_->findData(static_cast<int>(session_.carryMode())));
}

// At the ends the buttons are greyed; the keys are told why nothing happens.
bool PropagateSection::leadsSomewhere(int direction)
{
    const int to = session_.frame() + direction;
    if (to >= 0 && to < session_.frameCount())
        return true;
    emit said(direction < 0 ? tr("This is the first slice: there is none before it.")
                            : tr("This is the last slice: there is none after it."));
    return false;
}

void PropagateSection::propagate(int direction)
{
    if (!leadsSomewhere(direction))
        return;
    const hostkit::Panel_Call until_complete;
    slot_.panel().Propagate(direction);
}

void PropagateSection::propagateOver(int direction)
{
    if (worker_.busy())
        return emit said(Worker::busyText());
    if (!leadsSomewhere(direction))
        return;
    const std::shared_ptr<Propagation> work = session_.propagationOver(count_->value(), direction);
    if (!work)
        return;
    const int slices = std::abs(work->last() - work->first());
    const auto done = std::make_shared<bool>(false);
    worker_.start(
        slices == 1 ? tr("Propagating to slice %1").arg(work->last() + 1)
                    : tr("Propagating over %1 slices").arg(slices),
        [work, done](const document::Progress& progress) { *done = work->run(progress); },
        [this, work, done] {
            if (!*done)
                emit said(tr("Stopped. Nothing has changed."));
            else
                session_.adoptPropagation(*work);
        },
        [this](const QString& reason) { emit said(tr("The tags could not be carried over: %1").arg(reason)); });
}

}
