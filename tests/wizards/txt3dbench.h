#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"
#include "support/answeringdialogs.h"
#include "wizards/twocolourtext.h"
#include "wizards/txt3d.h"

#include <QApplication>
#include <QTest>

#include <memory>

namespace ovrano {

/// The dialog on a work picture with a viewport, opened as often as a test likes.
struct Txt3DBench {
    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    QWidget window;
    PictureView view{work, &window};
    Handover handover{work, view};
    WizardMemory memory;
    std::unique_ptr<Txt3D> dialog;

    /// Opens the dialog as if this text had been applied before. "Arial" is what every machine has something
    /// for.
    explicit Txt3DBench(const QString& applied = QStringLiteral("Été")) {
        memory.TwoColourText = applied;
        open();
    }

    void open() { dialog = std::make_unique<Txt3D>(handover, memory, dialogs); }

    /// Shows it, so that a widget of it can have the keyboard.
    void show() const {
        dialog->show();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }

    /// Presses a key wherever the keyboard is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    /// Extrudes at an angle that is put in as a paste does, past the keyboard.
    void extrude(const QString& angle) const {
        dialog->Check2->setChecked(true);
        dialog->Text2->lineEdit()->setText(angle);
    }
    QString angle() const { return dialog->Text2->currentText(); }
    const Raster& shown() const { return dialog->ExamplePic.Image(); }

    /// What the dialog is to show with these prints under the face.
    Raster expected(std::vector<TextPrint> behind) const {
        const Surface& example = dialog->ExamplePic;
        Surface surface(QStringLiteral("expected"), example.innerSize());
        surface.setBackColor(example.BackColor());
        surface.setFont(example.Font());
        behind.push_back(facePrint(dialog->LblCoulT->BackColor()));
        printTextLayers(surface, dialog->Text1->text(), behind);
        return surface.Image();
    }
    Raster expectedExtrusion(double radians) const {
        return expected(extrusionPrints(dialog->LblCoul3D->BackColor(), dialog->Slider1->value(), radians));
    }
    Raster blank() const { return Raster(dialog->ExamplePic.innerSize(), dialog->ExamplePic.BackColor()); }
    bool isBlank() const { return shown() == blank(); }
};

} // namespace ovrano
