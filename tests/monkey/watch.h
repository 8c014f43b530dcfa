#pragma once

#include "support/processortime.h"

#include <QString>
#include <QStringList>

namespace ovrano::monkey {

/// Notes what must not happen while somebody plays: messages of the toolkit, and stretches in which the
/// program neither handles events nor lets the window repaint. One at a time.
class Watch {
public:
    Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch();

    /// To be called, in the program's thread, whenever events are being handled; says what comes next.
    void alive(const char* next);

    /// The longest that the program's thread has worked without being alive, in milliseconds of its processor
    /// time (so that a busy machine makes no difference), and what it had been about to do.
    double longest() const { return m_longest; }
    QString longestWas() const { return QLatin1String(m_longestWas); }

    /// Warnings and worse, each once.
    QStringList messages() const;

    /// Forgets how long it has been, without blaming anybody.
    void restart();

private:
    testing::ProcessorTime m_since{testing::ProcessorTime::Of::ThisThread};
    double m_longest = 0;
    const char* m_doing = "";
    const char* m_longestWas = "";
};

} // namespace ovrano::monkey
