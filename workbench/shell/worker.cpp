#include "workbench/shell/worker.h"

#include <exception>
#include <new>
#include <utility>

namespace workbench {

namespace {

QString problemOf(const std::function<void(const document::Progress&)>& work, const document::Progress& progress)
{
    try {
        work(progress);
        return {};
    } catch (const std::bad_alloc&) {
        return QStringLiteral("there is not enough memory.");
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    } catch (...) {
        return QStringLiteral("the reason is unknown.");
    }
}

}

Worker::~Worker()
{
    if (!thread_)
        return;
    cancel();
    thread_->wait();
}

void Worker::start(const QString& title, std::function<void(const document::Progress&)> work,
    std::function<void()> then, std::function<void(const QString&)> failed)
{
    Q_ASSERT(!busy());
    cancelled_ = false;
    problem_.clear();
    then_ = std::move(then);
    failed_ = std::move(failed);

    document::Progress progress;
    progress.cancelled = &cancelled_;
    progress.report = [this, last = -1](double done) mutable {
        const int percent = static_cast<int>(done * 100);
        if (std::exchange(last, percent) != percent)
            emit progressed(percent);
    };
    thread_.reset(QThread::create(
        [this, work = std::move(work), progress = std::move(progress)] { problem_ = problemOf(work, progress); }));
    connect(thread_.get(), &QThread::finished, this, &Worker::end);
    emit started(title);
    thread_->start();
}

// What follows may start the next work.
void Worker::end()
{
    thread_->wait();
    thread_.reset();
    const auto then = std::exchange(then_, nullptr);
    const auto failed = std::exchange(failed_, nullptr);
    emit finished();
    if (problem_.isEmpty())
        then();
    else
        failed(problem_);
}

}
