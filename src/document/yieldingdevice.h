#pragma once

#include "platform/yield.h"

#include <QIODevice>

namespace ovrano {

/// Passes another device's bytes on and lets the window repaint between two reads. Decoders read a few
/// thousand bytes at a time and cannot be interrupted otherwise.
class YieldingDevice : public QIODevice {
    Q_OBJECT

public:
    /// `source` is open for reading and not sequential; the yield is the one of the whole operation.
    YieldingDevice(QIODevice& source, EventYield& yield);

    bool isSequential() const override { return false; }
    qint64 size() const override { return m_source.size(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QIODevice& m_source;
    EventYield& m_yield;
};

} // namespace ovrano
