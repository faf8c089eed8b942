#include "workbench/shell/tag_dialog.h"

#include "workbench/document/text.h"
#include "workbench/model/session.h"
#include "workbench/shell/colour_button.h"
#include "workbench/shell/theme.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace workbench {

namespace {

QString exactText(double value)
{
    return QString::fromStdString(document::exact_text(value));
}

std::optional<double> numberIn(const QLineEdit& field)
{
    return document::exact_number<double>(field.text().toStdString());
}

}

TagDialog::TagDialog(Session& session, unsigned tag, QWidget* parent)
    : QDialog(parent), session_(session), tag_(tag), name_(new QLineEdit(session.tagName(tag))),
      colour_(new ColourButton), lower_(new QLineEdit), upper_(new QLineEdit), problem_(new QLabel)
{
    setWindowTitle(tr("Edit tag %1").arg(tag));
    name_->setPlaceholderText(session.tagTitle(tag));
    colour_->setColour(session.tagColour(tag));
    if (const auto thresholds = session.thresholds(tag)) {
        lower_->setText(exactText(thresholds->lower));
        upper_->setText(exactText(thresholds->upper));
    }
    problem_->setProperty("role", "problem");
    problem_->setWordWrap(true);
    problem_->hide();

    constexpr int margin = 2 * theme::spacing;
    auto* form = new QFormLayout(this);
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(theme::spacing);
    form->setSizeConstraint(QLayout::SetFixedSize);
    form->addRow(tr("&Name"), name_);
    form->addRow(tr("Co&lour"), colour_);
    auto* greyValues = new QLabel(tr("&Grey values"));
    greyValues->setBuddy(lower_);
    form->addRow(
        greyValues, makeGreyValues(session.hasImage() ? QString::fromStdString(session.volume().unit) : QString()));
    form->addRow(problem_);
    form->addRow(makeButtons());
    name_->selectAll();
}

QWidget* TagDialog::makeGreyValues(const QString& unit)
{
    lower_->setAccessibleName(tr("Lower grey value"));
    upper_->setAccessibleName(tr("Upper grey value"));
    auto* group = new QWidget;
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(theme::spacing);
    row->addWidget(lower_);
    row->addWidget(new QLabel(tr("to")));
    row->addWidget(upper_);
    auto* unitLabel = new QLabel(unit);
    unitLabel->setProperty("role", "quiet");
    row->addWidget(unitLabel);
    for (QLineEdit* field : {lower_, upper_}) {
        field->setPlaceholderText(tr("none"));
        connect(field, &QLineEdit::textEdited, problem_, &QLabel::hide);
    }
    return group;
}

QWidget* TagDialog::makeButtons()
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
    buttons->setContentsMargins(0, theme::spacing, 0, 0);
    connect(buttons, &QDialogButtonBox::accepted, this, &TagDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TagDialog::reject);
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("&Cancel"));
    buttons->button(QDialogButtonBox::Apply)->setText(tr("&Apply"));
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &TagDialog::apply);
    return buttons;
}

void TagDialog::accept()
{
    if (apply())
        QDialog::accept();
}

bool TagDialog::apply()
{
    const GreyValues values = greyValues();
    problem_->setText(values.problem);
    problem_->setVisible(!values.problem.isEmpty());
    if (values.where) {
        values.where->setFocus();
        values.where->selectAll();
        return false;
    }
    document::LabelEntry entry = session_.tagEntry(tag_);
    if (name_->text() != session_.tagName(tag_))
        entry.name = name_->text().trimmed().toStdString();
    const QColor colour = colour_->colour();
    entry.red = static_cast<std::uint8_t>(colour.red());
    entry.green = static_cast<std::uint8_t>(colour.green());
    entry.blue = static_cast<std::uint8_t>(colour.blue());
    entry.thresholds = values.thresholds;
    session_.editTag(entry);
    return true;
}

TagDialog::GreyValues TagDialog::greyValues() const
{
    const bool noLower = lower_->text().trimmed().isEmpty(), noUpper = upper_->text().trimmed().isEmpty();
    if (noLower && noUpper)
        return {};
    if (noLower || noUpper)
        return {{}, tr("A lower and an upper grey value belong together. Fill in both, or leave both empty."),
            noLower ? lower_ : upper_};
    for (QLineEdit* field : {lower_, upper_}) {
        if (!numberIn(*field))
            return {{},
                tr("\"%1\" is no number. Write it like -150 or 0.5, with a point.").arg(field->text().trimmed()),
                field};
    }
    const document::Thresholds thresholds{*numberIn(*lower_), *numberIn(*upper_)};
    if (thresholds.lower > thresholds.upper)
        return {{},
            tr("The lower grey value %1 is above the upper one, %2.")
                .arg(exactText(thresholds.lower), exactText(thresholds.upper)),
            lower_};
    return {thresholds, {}, nullptr};
}

}
