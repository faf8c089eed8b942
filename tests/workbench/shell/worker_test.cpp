#include "workbench/shell/worker.h"
#include "workbench/tour/driver.h"

#include <gtest/gtest.h>

#include <QThread>

#include <stdexcept>

using workbench::Driver;
using workbench::Worker;

TEST(Worker, WorksInAnotherThreadAndFollowsUpInThisOne)
{
    Worker worker;
    QThread* worked = nullptr;
    QThread* followed = nullptr;
    worker.start(
        "work", [&](const document::Progress&) { worked = QThread::currentThread(); },
        [&] { followed = QThread::currentThread(); }, [](const QString& reason) { FAIL() << reason.toStdString(); });
    EXPECT_TRUE(worker.busy());
    ASSERT_TRUE(Driver::waitFor([&] { return !worker.busy(); }));
    EXPECT_NE(worked, QThread::currentThread());
    EXPECT_EQ(followed, QThread::currentThread());
}

TEST(Worker, TellsItsProgressOncePerPercent)
{
    Worker worker;
    QList<int> told;
    QObject::connect(&worker, &Worker::progressed, &worker, [&](int percent) { told << percent; });
    worker.start(
        "work",
        [](const document::Progress& progress) {
            for (int i = 0; i <= 1000; ++i)
                progress.at(i / 1000.0);
        },
        [] {}, [](const QString&) {});
    ASSERT_TRUE(Driver::waitFor([&] { return !worker.busy(); }));
    ASSERT_EQ(told.size(), 101);
    EXPECT_EQ(told.front(), 0);
    EXPECT_EQ(told.back(), 100);
}

TEST(Worker, CancelReachesTheWork)
{
    Worker worker;
    bool stopped = false;
    worker.start(
        "work",
        [&](const document::Progress& progress) {
            while (!progress.stop())
                QThread::msleep(1);
            stopped = true;
        },
        [] {}, [](const QString&) {});
    worker.cancel();
    ASSERT_TRUE(Driver::waitFor([&] { return !worker.busy(); }));
    EXPECT_TRUE(stopped);
}

TEST(Worker, AnExceptionOfTheWorkIsToldInsteadOfFollowedUp)
{
    Worker worker;
    QString told;
    bool followed = false;
    worker.start(
        "work", [](const document::Progress&) { throw std::runtime_error("the disk fell out"); },
        [&] { followed = true; }, [&](const QString& reason) { told = reason; });
    ASSERT_TRUE(Driver::waitFor([&] { return !worker.busy(); }));
    EXPECT_EQ(told, "the disk fell out");
    EXPECT_FALSE(followed);
}

TEST(Worker, GoingAwayStopsTheWorkAndNothingFollows)
{
    bool followed = false;
    bool stopped = false;
    {
        Worker worker;
        worker.start(
            "work",
            [&](const document::Progress& progress) {
                while (!progress.stop())
                    QThread::msleep(1);
                stopped = true;
            },
            [&] { followed = true; }, [](const QString&) {});
    }
    Driver::settle();
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(followed);
}

TEST(Worker, TheNextWorkCanBeStartedFromWhatFollows)
{
    Worker worker;
    bool second = false;
    const auto ignore = [](const QString&) {};
    worker.start(
        "first", [](const document::Progress&) {},
        [&] {
            worker.start(
                "second", [](const document::Progress&) {}, [&] { second = true; }, ignore);
        },
        ignore);
    ASSERT_TRUE(Driver::waitFor([&] { return second; }));
}
