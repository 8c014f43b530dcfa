#include "platform/directclipboard.h"
#include "platform/selectiontransfer_x11.h"

#include <QDeadlineTimer>
#include <QGuiApplication>

#include <cstring>

namespace ovrano {

namespace {

/// An owner announces what it has at once, but may have to encode what it gives.
constexpr int AnnouncementPatience = 1000; // milliseconds
constexpr int DataPatience = 10'000;
constexpr int RestMilliseconds = 10'000; // before a silent owner is asked again

/// Who kept silent last, and until when he is left alone.
struct Silence {
    xcb_window_t owner = XCB_WINDOW_NONE;
    QDeadlineTimer until;
};

bool isX11() {
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

QByteArray ask(SelectionTransfer& transfer, const QByteArray& target, int patience) {
    static Silence silence;
    if (transfer.owner() == silence.owner && !silence.until.hasExpired())
        return QByteArray();
    QByteArray answer = transfer.fetch(target, patience);
    if (transfer.wasSilent())
        silence = {transfer.owner(), QDeadlineTimer(RestMilliseconds)};
    return answer;
}

} // namespace

std::optional<QStringList> announcedDirectly() {
    if (!isX11())
        return std::nullopt;
    SelectionTransfer transfer;
    const QByteArray atoms = ask(transfer, "TARGETS", AnnouncementPatience);
    std::vector<xcb_atom_t> targets(static_cast<std::size_t>(atoms.size()) / sizeof(xcb_atom_t));
    if (!targets.empty())
        std::memcpy(targets.data(), atoms.constData(), targets.size() * sizeof(xcb_atom_t));
    return transfer.namesOf(targets);
}

std::optional<QByteArray> fetchDirectly(const QString& type) {
    if (!isX11())
        return std::nullopt;
    SelectionTransfer transfer;
    return ask(transfer, type.toLatin1(), DataPatience);
}

} // namespace ovrano
