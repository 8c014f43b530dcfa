#include "model/comparison.h"

#include "model/testpictures.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>

#include <algorithm>

namespace ovrano::model {

namespace {

class Differences {
public:
    template<typename Value>
    void compare(const char* what, const Value& program, const Value& model) {
        if (program != model)
            add(what, textOf(program), textOf(model));
    }
    void compare(const char* what, const Pixels& program, const Pixels& model);
    QString text() const { return m_lines.join(QLatin1Char('\n')); }

private:
    static QString textOf(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }
    static QString textOf(bool flag) { return flag ? QStringLiteral("true") : QStringLiteral("false"); }
    static QString textOf(int number) { return QString::number(number); }
    static QString textOf(float number) { return QString::number(static_cast<double>(number)); }

    void add(const char* what, const QString& program, const QString& model) {
        m_lines.append(
            QStringLiteral("%1: the program has %2, the model %3").arg(QLatin1String(what), program, model));
    }

    QStringList m_lines;
};

void Differences::compare(const char* what, const Pixels& program, const Pixels& model) {
    if (program == model)
        return;
    if (program.width != model.width || program.height != model.height) {
        add(what, QStringLiteral("%1 x %2").arg(program.width).arg(program.height),
            QStringLiteral("%1 x %2").arg(model.width).arg(model.height));
        return;
    }
    QStringList pixels;
    int count = 0;
    for (int y = 0; y < program.height; ++y)
        for (int x = 0; x < program.width; ++x)
            if (program.get(x, y) != model.get(x, y) && ++count <= 3)
                pixels.append(QStringLiteral("(%1, %2) %3 / %4")
                                  .arg(x)
                                  .arg(y)
                                  .arg(program.get(x, y), 6, 16, QLatin1Char('0'))
                                  .arg(model.get(x, y), 6, 16, QLatin1Char('0')));
    m_lines.append(QStringLiteral("%1: %2 pixels differ, program / model: %3")
                       .arg(QLatin1String(what))
                       .arg(count)
                       .arg(pixels.join(QStringLiteral(", "))));
}

Qt::CursorShape cursorOf(Shape shape) {
    switch (shape) {
    case Shape::Cross:
        return Qt::CrossCursor;
    case Shape::UpDown:
        return Qt::SizeVerCursor;
    case Shape::LeftRight:
        return Qt::SizeHorCursor;
    case Shape::Move:
        return Qt::SizeAllCursor;
    case Shape::Arrow:
        break;
    }
    return Qt::ArrowCursor;
}

Rgb toRgb(Colour colour) {
    return toPixel(colour) & 0xFFFFFFU;
}

void compareDocument(Differences& found, MainWindow& window, const State& s) {
    const WorkPicture& work = window.work();
    found.compare("picture", toPixels(work.picDisp.Image()), s.disp.shown);
    found.compare("ImageLoaded", work.ImageLoaded, s.loaded);
    found.compare("ImageModified", work.ImageModified, s.modified);
    found.compare("UndoAvailable", work.UndoAvailable, s.undoAvailable);
    found.compare("SaveCancelled", work.SaveCancelled, s.saveCancelled);
    found.compare("ImageWidth", work.ImageWidth, s.imageWidth);
    found.compare("ImageHeight", work.ImageHeight, s.imageHeight);
    found.compare("CurrentFileName", work.CurrentFileName, s.fileName);
}

void compareBlock(Differences& found, const LiftedBlock& block, const State& s) {
    found.compare("HasSelection", block.HasSelection, s.hasSelection);
    found.compare("TransparentPaste", block.TransparentPaste, s.transparent);
    found.compare("BlockFromPaste", block.BlockFromPaste, s.fromPaste);
    found.compare("MouseIsDown", block.MouseIsDown, s.mouseDown);
    found.compare("ResizingWidth", block.ResizingWidth, s.resizingWidth);
    found.compare("ResizingHeight", block.ResizingHeight, s.resizingHeight);
    found.compare("SelX1", block.SelX1, s.x1);
    found.compare("SelX2", block.SelX2, s.x2);
    found.compare("SelY1", block.SelY1, s.y1);
    found.compare("SelY2", block.SelY2, s.y2);
}

/// The part of the picture that is in the viewport; nothing when none is.
Pixels inView(const State& s) {
    const int width = std::min(s.horizontal.viewport, s.disp.shown.width - s.horizontal.value);
    const int height = std::min(s.vertical.viewport, s.disp.shown.height - s.vertical.value);
    if (width < 1 || height < 1)
        return {};
    Sheet part(width, height);
    part.paste(s.disp.shown, {s.horizontal.value, s.vertical.value, width, height}, 0, 0);
    return part.shown;
}

void compareControls(Differences& found, Driver& driver, const State& s) {
    found.compare("lblFileSpec", driver.find<QLabel>("lblFileSpec")->text(), s.fileLabel);
    found.compare("lblImageSize", driver.find<QLabel>("lblImageSize")->text(), s.sizeLabel);
    found.compare("imgRegion", driver.find<ImageButton>("imgRegion")->isOn(), s.zoneMode);
    found.compare("mnuToolsRegion", driver.find<QAction>("mnuToolsRegion")->isChecked(), s.zoneMode);
    found.compare("imgColorPicker", driver.find<ImageButton>("imgColorPicker")->isOn(), s.picker);
    found.compare("Command2", driver.find<QWidget>("Command2")->isEnabled(), s.backgroundUsable);
    found.compare("LblFond", driver.find<QWidget>("LblFond")->isEnabled(), s.backgroundUsable);
    found.compare("background", static_cast<int>(toRgb(driver.find<ColourBox>("LblFond")->BackColor())),
                  static_cast<int>(s.background));
    found.compare("text colour", static_cast<int>(toRgb(driver.find<ColourBox>("picTextColor")->BackColor())),
                  static_cast<int>(s.textColour));
    found.compare("pointer", static_cast<int>(driver.window().view().picDisp->cursor().shape()),
                  static_cast<int>(cursorOf(s.shape)));
}

void compareBar(Differences& found, const char* name, const QScrollBar& program, const ScrollBar& model) {
    const QString text = QStringLiteral("value %1 of %2, steps %3 and %4");
    found.compare(
        name,
        text.arg(program.value()).arg(program.maximum()).arg(program.singleStep()).arg(program.pageStep()),
        text.arg(model.value).arg(model.max).arg(model.arrowStep).arg(model.pageStep));
}

void compareEditMenu(Differences& found, Driver& driver, const EditMenu& menu) {
    const auto entry = [&](const char* name, bool enabled) {
        found.compare(name, driver.find<QAction>(name)->isEnabled(), enabled);
    };
    found.compare("CmdAnnul", driver.find<QWidget>("CmdAnnul")->isEnabled(), menu.undo);
    entry("mnuEditUndo", menu.undo);
    entry("mnuEditCut", menu.cut);
    entry("mnuEditCopy", menu.copy);
    for (const char* name : {"mnuEditPaste", "mnuEditPasteTransparent", "Mnu_ColleNouvIMG"})
        entry(name, menu.paste);
    for (const char* name : {"mnuEditPasteFromFile", "mnuEditPasteFromFileTransparent"})
        entry(name, menu.pasteFile);
    for (const char* name : {"mnuEditClearClipboard", "mnuFileSave", "mnuToolsRegion"})
        entry(name, true);
}

bool isAsked(const QString& message, const QString& expected) {
    return expected.endsWith(QLatin1Char('*')) ? message.startsWith(expected.chopped(1))
                                               : message == expected;
}

void compareMessages(Differences& found, const QStringList& asked, const QStringList& expected) {
    const bool same = std::equal(asked.begin(), asked.end(), expected.begin(), expected.end(), isAsked);
    if (!same)
        found.compare("messages", asked.join(QStringLiteral(" | ")), expected.join(QStringLiteral(" | ")));
}

} // namespace

QString differences(Driver& driver, const State& state) {
    Differences found;
    compareMessages(found, driver.dialogs().messages, state.asked);
    found.compare("proposed name", driver.dialogs().proposedName, state.proposedName);
    compareDocument(found, driver.window(), state);
    found.compare("screen", driver.onScreen(), inView(state));
    compareBlock(found, driver.window().block(), state);
    compareControls(found, driver, state);
    compareBar(found, "HScroll1", *driver.window().view().HScroll1, state.horizontal);
    compareBar(found, "VScroll1", *driver.window().view().VScroll1, state.vertical);
    compareEditMenu(found, driver, state.editMenu);
    return found.text();
}

QString clipboardDifference(const State& state) {
    Differences found;
    found.compare("clipboard", toPixels(QGuiApplication::clipboard()->image()),
                  state.clipboard.value_or(Pixels()));
    return found.text();
}

QString folderDifference(const State& state) {
    QStringList expected = state.files.keys();
    expected.append(fileName(DamagedFile));
    QStringList present =
        QDir(state.folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    expected.sort();
    present.sort();
    Differences found;
    found.compare("folder", present.join(QLatin1Char(' ')), expected.join(QLatin1Char(' ')));
    return found.text();
}

QString fileDifference(const QString& path, const Pixels& expected) {
    Differences found;
    found.compare(qPrintable(path), toPixels(QImage(path)), expected);
    return found.text();
}

} // namespace ovrano::model
