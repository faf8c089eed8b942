#pragma once

#include "workbench/document/label_table.h"

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;

namespace workbench {

class ColourButton;
class Session;

/// Edits a tag: its name, its colour and its grey values. What is applied at once is one step of undo.
class TagDialog final : public QDialog {
    Q_OBJECT
public:
    /// @param tag  any but the background. The session must outlive the dialog.
    TagDialog(Session& session, unsigned tag, QWidget* parent);

    void accept() override; ///< stays open, and says why, when something cannot be understood

private:
    /// What was typed: grey values, or what is wrong with them and where.
    struct GreyValues {
        std::optional<document::Thresholds> thresholds;
        QString problem;
        QLineEdit* where = nullptr;
    };
    GreyValues greyValues() const;
    QWidget* makeGreyValues(const QString& unit);
    QWidget* makeButtons();
    bool apply();

    Session& session_;
    const unsigned tag_;
    QLineEdit* name_;
    ColourButton* colour_;
    QLineEdit* lower_;
    QLineEdit* upper_;
    QLabel* problem_;
};

}
