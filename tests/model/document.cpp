#include "model/document.h"

#include <set>
#include <utility>

namespace ovrano::model {

bool Document::confirm(const QString& question, Answer reply, const Chosen& file) {
    if (!s.modified)
        return true;
    s.asked.append(question);
    if (reply != Answer::Yes)
        return reply == Answer::No;
    save(file);
    return !s.saveCancelled;
}

void Document::open(const Chosen& file, Answer reply, const Chosen& toSave) {
    if (!confirm(QStringLiteral("Enregistrer l'image?"), reply, toSave) || file.cancelled)
        return;
    s.fileName = s.folder + file.name;
    s.disp.empty(); // also when nothing can take its place
    if (canRead(file.name))
        present(file.name);
    else
        reportDamage();
}

void Document::drop(const QString& name, Answer reply, const Chosen& toSave) {
    if (!canRead(name))
        return reportDamage();
    const Pixels picture = s.files[name]; // which the saving may replace
    if (!confirm(QStringLiteral("Enregistrer l'image?"), reply, toSave))
        return;
    s.fileName = s.folder + name;
    const Pixels saved = std::exchange(s.files[name], picture);
    present(name);
    s.files[name] = saved;
}

void Document::reportDamage() {
    s.asked.append(QStringLiteral("mnuFileOpen_Click\r\n481*"));
}

void Document::present(const QString& name) {
    s.disp.take(s.files[name]);
    m_zone.forget();
    s.snap.empty();
    s.snap.resize(s.disp.shown.width, s.disp.shown.height);
    s.undo.empty();
    s.undo.resize(s.disp.shown.width, s.disp.shown.height);
    s.region.empty();
    s.mask.empty();
    s.fileLabel = s.fileName;
    s.scrollHome();
    s.fit();
    s.picker = false;
    s.modified = false;
}

void Document::accept(int width, int height, Rgb colour) {
    s.newWidth = width;
    s.newHeight = height;
    s.newColour = colour;
    build();
}

void Document::build() {
    m_zone.forget();
    for (Sheet* sheet : {&s.disp, &s.snap, &s.undo, &s.region, &s.mask})
        sheet->empty();
    s.fileLabel.clear();
    s.scrollHome();
    s.disp.resize(s.newWidth, s.newHeight);
    s.disp.setGround(s.newColour);
    s.background = s.newColour;
    s.backgroundUsable = true;
    s.snap.resize(s.newWidth, s.newHeight);
    s.mask.resize(s.newWidth, s.newHeight);
    s.fit();
    s.picker = false;
    s.modified = false;
}

/// The part before the first dot, and what the row stands for.
QString Document::written(const Chosen& file) {
    const QString ending = file.row == 1   ? QStringLiteral("bmp")
                           : file.row == 6 ? QStringLiteral("gif")
                                           : QStringLiteral("jpg");
    return file.name.left(file.name.indexOf(QLatin1Char('.')) + 1) + ending;
}

void Document::save(const Chosen& file) {
    s.saveCancelled = file.cancelled;
    s.proposedName = s.fileLabel.startsWith(s.folder) ? s.fileLabel : QString();
    if (file.cancelled)
        return;
    s.fileName = s.folder + file.name;
    if (s.disp.shown.isEmpty() || file.name.startsWith(QStringLiteral("missing/"))) {
        s.asked.append(QStringLiteral("Erreur lors de l'enregistrement du fichier !\r\n*"));
        return;
    }
    const QString name = written(file);
    s.files[name] = s.disp.shown; // with its frame
    s.fileLabel = s.folder + name;
}

void Document::saveAs(const Chosen& file, const Pixels& seen) {
    constexpr std::size_t MostInAGif = 256;
    save(file);
    const auto saved = s.files.find(written(file));
    if (saved == s.files.end() || seen.width != saved->width || seen.height != saved->height)
        return;
    const std::set<Rgb> colours(saved->colours.begin(), saved->colours.end());
    if (file.row != 6 || colours.size() > MostInAGif)
        *saved = seen; // the format has lost something
}

void Document::undo() {
    s.disp.empty();
    s.disp.resize(s.undo.shown.width, s.undo.shown.height);
    s.disp.copyAll(s.undo);
    s.picker = false;
    s.scrollHome();
    s.undoAvailable = false;
}

void Document::changeBackground(Rgb colour) {
    s.background = colour;
    s.disp.setGround(colour);
    s.snap.setGround(colour);
    m_zone.clear();
}

void Document::openTextMenu() {
    s.picker = false;
    s.zoneMode = false;
}

void Document::chooseOneColourText() {
    m_zone.clear();
    s.textTools = true;
}

void Document::openTextDialog() {
    s.textTools = false;
}

void Document::takeFromDialog(const Pixels& picture) {
    m_zone.forget();
    s.disp.take(picture);
    s.snap.resize(picture.width, picture.height);
    s.mask.resize(picture.width, picture.width);
    s.scrollHome();
    s.fit();
    s.picker = false;
    s.backgroundUsable = false;
}

} // namespace ovrano::model
