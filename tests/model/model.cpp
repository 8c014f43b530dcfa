#include "model/model.h"

#include "model/testpictures.h"

namespace ovrano::model {

namespace {

Chosen chosen(int file) {
    return file == NoFile ? Chosen{true, QString()} : Chosen{false, fileName(file)};
}

Chosen typed(int name, int row = 1) {
    return name == NoFile ? Chosen{true, QString()} : Chosen{false, typedName(name), row};
}

} // namespace

Model::Model(const QString& folder, int viewportWidth, int viewportHeight)
    : m_zone(s)
    , m_hand(s, m_zone)
    , m_exchange(s, m_zone)
    , m_document(s, m_zone) {
    s.folder = folder;
    s.horizontal.viewport = viewportWidth;
    s.vertical.viewport = viewportHeight;
    s.fit();
    s.updateEditMenu();
    for (int i = 0; i < Pictures; ++i)
        s.files[fileName(i)] = testPicture(i);
}

bool Model::allows(const Step& step) const {
    const std::vector<int>& numbers = step.numbers;
    switch (step.kind) {
    case Kind::Open:
    case Kind::Drop:
    case Kind::PasteFile: // only what is there can be chosen
        return numbers[0] < FirstSaved || s.files.contains(fileName(numbers[0]));
    case Kind::TextColour:
        return s.textTools;
    case Kind::Stamp: // a text cannot be measured against nothing
        return !s.disp.shown.isEmpty() && s.textTools;
    case Kind::Close: // otherwise the window would go
        return s.modified;
    case Kind::Gesture:
        return allowsGesture(numbers);
    case Kind::Arrow:
    case Kind::Space:
        return allowsKey(step.kind);
    default:
        return true;
    }
}

bool Model::allowsKey(Kind key) const {
    const bool lifted = s.zoneMode && s.hasSelection;
    if (s.buttonHeld) // then no key comes
        return false;
    if (key == Kind::Arrow && lifted)
        return !s.keyPressed;
    return true;
}

bool Model::allowsGesture(const std::vector<int>& numbers) const {
    return s.disp.shown.has(numbers[2], numbers[3]);
}

void Model::obey(const Step& step, const Pixels& seen) {
    s.asked.clear();
    if (s.keyPressed && isCommandKey(step))
        return; // no command starts inside a gesture
    if (!isOnPicture(step))
        m_hand.leave();
    if (step.kind <= Kind::Background)
        obeyFile(step, seen);
    else if (step.kind <= Kind::Enter)
        obeyTool(step);
    else
        obeyEdit(step, seen);
}

void Model::obeyFile(const Step& step, const Pixels& seen) {
    switch (step.kind) {
    case Kind::Open:
        return m_document.open(chosen(step.numbers[0]), step.reply, typed(step.numbers[1]));
    case Kind::New:
    case Kind::NewCancelled:
    case Kind::NewClosed:
        return startNew(step);
    case Kind::Save:
        return m_document.saveAs(typed(step.numbers[0], step.numbers[1]), seen);
    case Kind::Drop:
        return m_document.drop(fileName(step.numbers[0]), step.reply, typed(step.numbers[1]));
    case Kind::TextDialog:
        return textDialog(step.numbers[1] == 1, seen);
    case Kind::Close:
        m_document.confirm(QStringLiteral("Enregistrer l'image ?"), Answer::Cancel, chosen(NoFile));
        return;
    case Kind::Undo:
        return undo(step.numbers[0]);
    default:
        if (step.numbers[0] >= 0 && s.backgroundUsable)
            m_document.changeBackground(colourAt(step.numbers[0]));
    }
}

void Model::startNew(const Step& step) {
    const int toSave = step.numbers.back();
    if (!m_document.confirm(QStringLiteral("Enregistrer l'image ?"), step.reply, typed(toSave)))
        return;
    if (step.kind == Kind::New)
        m_document.accept(step.numbers[0], step.numbers[1],
                          step.numbers[2] < 0 ? s.background : colourAt(step.numbers[2]));
    else if (step.kind == Kind::NewClosed)
        m_document.build();
}

void Model::textDialog(bool applied, const Pixels& seen) {
    m_document.openTextMenu();
    m_document.openTextDialog();
    if (applied)
        m_document.takeFromDialog(seen);
}

void Model::undo(int way) {
    if (way != 1)
        s.updateEditMenu(); // the menu opens; a key asks the same rule
    if (!s.editMenu.undo)   // nor is the button
        return;
    m_document.undo();
    if (way == 1)
        s.updateEditMenu();
}

void Model::obeyTool(const Step& step) {
    switch (step.kind) {
    case Kind::ZoneButton:
        return m_hand.zoneButton();
    case Kind::ZoneEntry:
        return m_hand.zoneEntry();
    case Kind::PickerButton:
    case Kind::PickerEntry:
        return m_hand.pickerButton();
    case Kind::Gesture:
        return gesture(step.numbers);
    case Kind::Space:
        return m_hand.space();
    case Kind::Arrow:
        return m_hand.arrow(step.numbers[0], step.numbers[1]);
    default:
        return m_hand.enter();
    }
}

void Model::gesture(const std::vector<int>& numbers) {
    m_hand.hover(numbers[2], numbers[3]);
    m_hand.hover(numbers[2], numbers[3]); // the picture may have changed below the pointer
    m_hand.pressMouse(numbers[0] == 1, numbers[2], numbers[3]);
    if (numbers[1] == DoubleClick) {
        m_hand.releaseMouse(numbers[2], numbers[3]);
        m_hand.pressMouse(numbers[0] == 1, numbers[2], numbers[3]);
    }
    for (std::size_t i = 4; i < numbers.size(); i += 2) {
        m_hand.move(numbers[i], numbers[i + 1]);
        if (i == 4 && numbers[1] == SecondButton) {
            m_hand.pressMouse(numbers[0] != 1, numbers[i], numbers[i + 1]);
            m_hand.releaseMouse(numbers[i], numbers[i + 1]);
        }
    }
    if (numbers[1] != LostRelease)
        m_hand.releaseMouse(numbers[numbers.size() - 2], numbers[numbers.size() - 1]);
}

void Model::obeyEdit(const Step& step, const Pixels& seen) {
    const auto number = [&](std::size_t i) { return step.numbers[i]; };
    if (step.kind <= Kind::ClearClipboard)
        s.updateEditMenu(); // the menu opens first
    switch (step.kind) {
    case Kind::Copy:
        return m_exchange.copy();
    case Kind::Cut:
        return s.editMenu.cut ? m_exchange.cut() : void();
    case Kind::Paste:
        return s.editMenu.paste ? m_exchange.paste(number(0) == 1, step.reply) : void();
    case Kind::PasteFile:
        if (number(0) != NoFile)
            m_exchange.pasteFile(pictureOf(number(0)), number(1) == 1, step.reply);
        return;
    case Kind::PasteNew:
        return s.editMenu.paste ? m_exchange.pasteNew() : void();
    case Kind::ClearClipboard:
        return m_exchange.clearClipboard();
    case Kind::ForeignText:
        s.clipboard.reset();
        return;
    case Kind::ForeignPicture:
        s.clipboard = pictureOf(number(0));
        return;
    case Kind::Stamp:
        return m_exchange.stamp(seen);
    case Kind::OpenMenu:
        return openMenu(number(0));
    case Kind::OneColourText:
        m_document.openTextMenu();
        return m_document.chooseOneColourText();
    case Kind::Push: // the picture goes with the hand
        s.horizontal.go(s.horizontal.value - number(0));
        s.vertical.go(s.vertical.value - number(1));
        return;
    case Kind::TextColour:
        return m_hand.chooseTextColour(number(0) < 0 ? s.textColour : colourAt(number(0)));
    default:
        (number(0) == 0 ? s.horizontal : s.vertical).go(number(1));
    }
}

void Model::openMenu(int menu) {
    if (menu == 1)
        s.updateEditMenu();
    if (menu == 3)
        m_document.openTextMenu();
}

std::optional<Pixels> Model::pictureOf(int file) const {
    const auto found = s.files.constFind(fileName(file));
    return found == s.files.constEnd() ? std::nullopt : std::optional<Pixels>(*found);
}

} // namespace ovrano::model
