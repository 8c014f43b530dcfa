#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace ovrano {

/// Tells when a command keeps the user waiting: begun() once it has yielded for longer than a moment, ended()
/// when the program waits for the user again, also for the answer to a question of the command.
class LongWork : public QObject {
    Q_OBJECT

public:
    /// What a user takes for "at once".
    static constexpr int MomentMilliseconds = 150;

    explicit LongWork(QObject* parent = nullptr);
    ~LongWork() override;
    Q_DISABLE_COPY_MOVE(LongWork)

    /// A command yields; called by EventYield.
    void goesOn();

Q_SIGNALS:
    void begun();
    void ended();

private:
    void look();

    QElapsedTimer m_sinceFirstYield;
    QTimer m_idle; // runs out when the event loop has nothing else to do
    bool m_told = false;
};

} // namespace ovrano
