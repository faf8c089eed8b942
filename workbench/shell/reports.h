#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace hostkit {
struct Report_Sink;
}

namespace workbench {

/// Where the reports of panels and host go while the workbench runs: to whoever shows them, without their markup.
class Reports final : public QObject {
    Q_OBJECT
public:
    explicit Reports(QObject* parent = nullptr);
    ~Reports() override; ///< puts back the sink that there was

signals:
    /// @param level  as Error_Fct was given: 1 and 2 concern the user
    void reported(int level, const QString& text);

private:
    std::unique_ptr<hostkit::Report_Sink> before_;
};

}
