#pragma once

#include "workbench/document/progress.h"

#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>

namespace workbench {

/// Runs one long piece of work beside the interface, with progress and a way to stop it.
class Worker final : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~Worker() override; ///< stops the work and waits for its end; what should follow does not happen

    bool busy() const { return thread_ != nullptr; }

    /// What to say to a user who wants something else meanwhile.
    static QString busyText() { return tr("Something else is still being done; wait for its end or cancel it."); }

    /// Runs `work` in a thread of its own and, when it has ended, `then` in this one. Nothing else must be running.
    /// @param title   what is being done, for the status bar: "Opening ch2.nii.gz"
    /// @param failed  called instead of `then` when the work ended by an exception, with the reason
    void start(const QString& title, std::function<void(const document::Progress&)> work, std::function<void()> then,
        std::function<void(const QString& reason)> failed);

    /// Asks the work to stop; it ends as soon as it notices.
    void cancel() { cancelled_ = true; }

signals:
    void started(const QString& title);
    void progressed(int percent);
    void finished();

private:
    void end();

    std::unique_ptr<QThread> thread_;
    std::atomic<bool> cancelled_ = false;
    QString problem_; // why the work ended by an exception; written before the thread ends
    std::function<void()> then_;
    std::function<void(const QString&)> failed_;
};

}
