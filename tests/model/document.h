#pragma once

#include "model/zone.h"
#include "platform/dialogs.h"

namespace ovrano::model {

/// What the user does in a file dialog.
struct Chosen {
    bool cancelled = false;
    QString name; // in the folder of the files
    int row = 1;  // of the type list
};

/// Opening, saving, new pictures, undo, background.
class Document {
public:
    Document(State& state, Zone& zone)
        : s(state)
        , m_zone(zone) {}

    /// `save` is what follows when the question about changes is answered with Yes.
    void open(const Chosen& file, Answer reply, const Chosen& save);
    void drop(const QString& name, Answer reply, const Chosen& save);
    /// Accepts the dialog for a new picture.
    void accept(int width, int height, Rgb colour);
    /// Builds the picture of the dialog accepted last.
    void build();
    /// Whether what is to be lost may be lost.
    bool confirm(const QString& question, Answer reply, const Chosen& save);
    void save(const Chosen& file);
    /// The same with another row of the type list; `seen` is what the file then holds.
    void saveAs(const Chosen& file, const Pixels& seen);
    void undo();
    void changeBackground(Rgb colour);
    void openTextMenu();
    void chooseOneColourText();
    void openTextDialog();
    /// A dialog's picture becomes the work picture.
    void takeFromDialog(const Pixels& picture);

private:
    bool canRead(const QString& name) const { return s.files.contains(name); }
    void reportDamage();
    void present(const QString& name);
    static QString written(const Chosen& file);

    State& s;
    Zone& m_zone;
};

} // namespace ovrano::model
