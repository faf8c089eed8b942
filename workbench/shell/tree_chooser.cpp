#include "workbench/shell/tree_chooser.h"

#include "workbench/shell/quiet_row.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QToolButton>

namespace workbench {

TreeChooser::TreeChooser(QWidget* parent) : QWidget(parent), buttons_(new QButtonGroup(this))
{
    struct Tree {
        int dimension;
        QString name, toolTip;
    };
    const Tree trees[] = {
        {2, tr("Images"), tr("Studies, series and their slices")},
        {3, tr("Volumes"), tr("Each series as a whole")},
        {1, tr("Signals"), tr("The histogram of each series")},
    };
    auto* row = rowIn(this);
    row->setContentsMargins(theme::smallSpacing, theme::smallSpacing, theme::smallSpacing, theme::smallSpacing);
    for (const auto& [dimension, name, toolTip] : trees) {
        auto* button = new QToolButton;
        button->setText(name);
        button->setToolTip(toolTip);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        buttons_->addButton(button, dimension);
        row->addWidget(button);
    }
    row->addStretch();
    connect(buttons_, &QButtonGroup::idClicked, this, &TreeChooser::chosen);
    setDimension(2);
}

QWidget& TreeChooser::button(int dimension) const
{
    return *buttons_->button(dimension);
}

void TreeChooser::setDimension(int dimension)
{
    buttons_->button(dimension)->setChecked(true);
}

}
