#include "longlife/life.h"

#include "model/testpictures.h"

#include <QDir>
#include <QImage>

#include <array>

namespace ovrano::longlife {

namespace {

using model::Kind;

constexpr int Texts = 3;
/// Rows of the type list: BMP, JPEG, GIF.
constexpr std::array SavedAs = {1, 2, 6};

} // namespace

Life::Life() {
    m_user.perform({Kind::OneColourText});
}

void Life::stampAndDrag(int round) {
    m_user.perform({Kind::Stamp, {round % Texts}});
    const LiftedBlock& block = m_user.window().block();
    const int x = static_cast<int>(block.SelX1) + 1;
    const int y = static_cast<int>(block.SelY1) + 1;
    model::Step drag{Kind::Gesture, {1, model::NoFlaw, x, y}};
    for (int step = 1; step <= 5; ++step) {
        drag.numbers.push_back(x + step * (round % 3));
        drag.numbers.push_back(y + step * (round % 2));
    }
    m_user.perform(drag);
}

QString Life::live(int round) {
    WorkPicture& work = m_user.window().work();
    m_user.perform({Kind::Open, {round % model::Pictures, model::NoFile}});
    const Raster opened = work.picDisp.Picture();
    if (model::toPixels(opened) != model::testPicture(round % model::Pictures))
        return QStringLiteral("another picture was opened");
    stampAndDrag(round);
    if (work.picDisp.Picture() == opened)
        return QStringLiteral("nothing was stamped; the program said: ") +
               m_user.dialogs().messages.join(QLatin1Char('/'));
    m_user.perform({Kind::Undo, {round % 2}});
    if (!(work.picDisp.Picture() == opened))
        return QStringLiteral("the stamp was not taken back");
    stampAndDrag(round + 1);
    m_user.perform({Kind::Save, {0, SavedAs.at(static_cast<std::size_t>(round) % SavedAs.size())}});
    if (QImage(work.shownPath()).size() != work.picDisp.innerSize())
        return QStringLiteral("another picture was saved");
    return {};
}

int Life::files() const {
    return static_cast<int>(
        QDir(m_user.folder()).entryList(QDir::Files | QDir::Hidden | QDir::System).size());
}

} // namespace ovrano::longlife
