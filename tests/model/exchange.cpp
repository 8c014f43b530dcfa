#include "model/exchange.h"

namespace ovrano::model {

void Exchange::copy() {
    s.clearFrame();
    if (!s.hasSelection) {
        if (!s.disp.shown.isEmpty())
            s.clipboard = s.disp.shown;
        return;
    }
    const Box zone = m_zone.box();
    Sheet part(zone.width, zone.height); // white beyond the picture
    part.paste(s.disp.shown, zone, 0, 0);
    s.clipboard = part.shown;
    m_zone.drawFrame();
}

void Exchange::cut() {
    if (s.x2 == 0 || s.y2 == 0) { // what tells a zone, also for a block of one pixel at the edge
        s.asked.append(QStringLiteral("Pas de zone de sélection en cours !"));
        return;
    }
    s.clearFrame();
    s.takeSnapshot();
    copy();
    s.clearFrame();
    const Box zone = m_zone.box();
    // One pixel less than was copied, to the right and below.
    s.disp.fill({zone.x, zone.y, zone.width - 1, zone.height - 1}, s.disp.ground);
    s.disp.keep();
    m_zone.clear();
    s.modified = true;
    s.updateEditMenu();
}

void Exchange::paste(bool transparent, Answer reply) {
    prepare();
    load(*s.clipboard, transparent, reply,
         {QStringLiteral("Image L="), QStringLiteral("Colle image L="),
          QStringLiteral("Largeur/Hauteur de l'image à coller est plus large ")});
}

void Exchange::pasteFile(const std::optional<Pixels>& picture, bool transparent, Answer reply) {
    prepare();
    if (picture) {
        load(*picture, transparent, reply,
             {QStringLiteral("Image en cours L="), QStringLiteral("Coller image L="),
              QStringLiteral("Largeur/Hauteur de l'image dans le presse papier est plus grande")});
        return;
    }
    s.asked.append(QStringLiteral("mnuEditPasteFromFile_Click\r\n481*"));
    restoreFrame();
}

void Exchange::prepare() {
    s.clearFrame();
    s.scrollHome();
    s.takeSnapshot();
}

void Exchange::restoreFrame() {
    if (s.hasSelection)
        m_zone.drawFrame();
    s.updateEditMenu();
}

void Exchange::load(const Pixels& picture, bool transparent, Answer reply, const Words& words) {
    if (makeRoom(picture, reply, words))
        place(picture, transparent);
    else
        restoreFrame();
}

bool Exchange::makeRoom(const Pixels& picture, Answer reply, const Words& words) {
    if (picture.width <= s.disp.shown.width && picture.height <= s.disp.shown.height)
        return true;
    ask(picture, words);
    if (reply == Answer::Cancel)
        return false;
    if (reply == Answer::Yes) {
        s.disp.resize(picture.width, picture.height); // where it was larger it shrinks
        s.fit();
    }
    return true;
}

void Exchange::ask(const Pixels& picture, const Words& words) {
    s.asked.append(QStringLiteral("%1%2 H=%3\r\n%4%5 H=%6\r\n%7 que la taille du support. \r\n"
                                  "Agrandir la Largeur/Hauteur de l'image en cours ?")
                       .arg(words.work)
                       .arg(s.disp.shown.width)
                       .arg(s.disp.shown.height)
                       .arg(words.pasted)
                       .arg(picture.width)
                       .arg(picture.height)
                       .arg(words.reason));
}

void Exchange::place(const Pixels& picture, bool transparent) {
    s.x1 = s.y1 = 0;
    s.x2 = static_cast<float>(picture.width - 1);
    s.y2 = static_cast<float>(picture.height - 1);
    s.modified = true;
    s.transparent = transparent;
    s.region.take(picture);
    if (transparent) {
        makeCornerSeeThrough();
        m_zone.cutMask();
    }
    s.snap.resize(s.disp.shown.width, s.disp.shown.height);
    s.snap.copyAll(s.disp);
    s.fromPaste = true;
    s.zoneMode = picture.width < s.disp.shown.width && picture.height < s.disp.shown.height;
    s.hasSelection = s.hasSelection || s.zoneMode;
    m_zone.startAt(0, 0);
    m_zone.setLeeway();
    m_zone.compose();
    s.updateEditMenu();
}

void Exchange::makeCornerSeeThrough() {
    const Rgb corner = s.region.shown.get(0, 0);
    for (Rgb& colour : s.region.shown.colours)
        if (colour == corner)
            colour = WhitePixel;
}

void Exchange::pasteNew() {
    m_zone.forget();
    s.clearFrame();
    s.snap.empty();
    s.region.empty();
    s.mask.empty();
    s.fileLabel.clear();
    s.scrollHome();
    s.picker = false;
    s.modified = false;
    s.takeSnapshot();
    s.disp.take(*s.clipboard);
    s.fit();
    s.updateEditMenu();
}

void Exchange::clearClipboard() {
    s.clipboard.reset();
    s.updateEditMenu();
}

void Exchange::stamp(const Pixels& text) {
    s.picker = false;
    s.scrollHome();
    s.clearFrame();
    s.takeSnapshot();
    s.snap.resize(s.disp.shown.width, s.disp.shown.height);
    s.snap.copyAll(s.disp);
    s.region.take(text);
    m_zone.cutMask();
    m_zone.startAt(0, 0);
    m_zone.setLeeway();
    s.hasSelection = s.transparent = s.zoneMode = true;
    s.x1 = s.y1 = 0;
    s.x2 = static_cast<float>(text.width - 1);
    s.y2 = static_cast<float>(text.height - 1);
    m_zone.compose();
    s.modified = true;
    s.backgroundUsable = false;
    s.updateEditMenu();
}

} // namespace ovrano::model
