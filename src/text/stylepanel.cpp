#include "text/stylepanel.h"

#include "platform/controls.h"
#include "platform/errorreporter.h"
#include "platform/fontbox.h"
#include "platform/keyfilter.h"
#include "platform/numbers.h"
#include "platform/textmask.h"
#include "platform/typingfilter.h"
#include "text/colourcaption.h"
#include "text/fontavailability.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace ovrano {

namespace {

constexpr int SmallestSize = 6; // points
constexpr int LargestSize = 99;

// Pixels.
constexpr int SampleWidth = 100;
constexpr QSize SwatchSize(28, 22);
constexpr int MoreButtonWidth = 30;
constexpr int SizeBoxWidth = 64;
constexpr int Spacing = 4;

constexpr int FontCharacters = 12;

} // namespace

StylePanel::StylePanel(WorkPicture& work, Dialogs& dialogs, QWidget* parent)
    : QGroupBox(QStringLiteral("Texte"), parent)
    , txbWriteText(named(new QLineEdit(QStringLiteral("Votre texte"), this), "txbWriteText",
                         QStringLiteral("Texte à écrire")))
    , cboFontName(named(new QComboBox(this), "cboFontName", QStringLiteral("Police")))
    , lblFontSize1(named(new QLabel(QStringLiteral("Taille"), this), "lblFontSize1"))
    , txtFontSize(named(new QComboBox(this), "txtFontSize", QStringLiteral("Taille du texte")))
    , imgBold(new ImageButton(QStringLiteral("imgBold"), QStringLiteral("Gras"), this))
    , imgItalic(new ImageButton(QStringLiteral("imgItalic"), QStringLiteral("Italique"), this))
    , shpTextSample(named(new QFrame(this), "shpTextSample"))
    , lblTextSample(new TextSample(QStringLiteral("lblTextSample"), White, shpTextSample))
    , picTextColor(new ColourBox(QStringLiteral("picTextColor"), Black, this))
    , cmdTextColor(named(new QPushButton(QStringLiteral("..."), this), "cmdTextColor",
                         QStringLiteral("Choix de la couleur de texte")))
    , lblTextColor(named(new QLabel(this), "lblTextColor"))
    , m_work(work)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {
    setObjectName(QStringLiteral("frafont"));
    fillLists();
    setUpSample();
    setUpColour();
    arrange();
    connectHandlers();
    DispDialogColor(Black);
}

void StylePanel::fillLists() {
    fillWithFonts(*cboFontName, FontCharacters);
    labelUnseen(*cboFontName);

    makeNumberBox(*txtFontSize);
    addNumbers(*txtFontSize, SmallestSize, LargestSize);
    txtFontSize->setCurrentIndex(txtFontSize->findText(QStringLiteral("24")));
    txtFontSize->setFixedWidth(SizeBoxWidth);
    txtFontSize->lineEdit()->setInputMethodHints(Qt::ImhDigitsOnly);
    lblFontSize1->setBuddy(txtFontSize);
}

void StylePanel::setUpSample() {
    shpTextSample->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    shpTextSample->setFixedWidth(SampleWidth);
    auto* inside = new QHBoxLayout(shpTextSample);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(lblTextSample);
    lblTextSample->setFrameStyle(QFrame::NoFrame);
    lblTextSample->setTextFormat(Qt::PlainText);
    lblTextSample->setAccessibleName(QStringLiteral("Exemple du texte"));
    lblTextSample->setAlignment(Qt::AlignCenter);
    // The largest letters do not make the panel grow.
    lblTextSample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

void StylePanel::setUpColour() {
    picTextColor->setFixedSize(SwatchSize);
    picTextColor->setAccessibleName(QStringLiteral("Couleur du texte"));
    cmdTextColor->setToolTip(cmdTextColor->accessibleName());
    cmdTextColor->setFixedWidth(MoreButtonWidth);
    cmdTextColor->setAutoDefault(false);
    lblTextColor->setTextFormat(Qt::PlainText);
    lblTextColor->setMinimumWidth(lblTextColor->fontMetrics().horizontalAdvance(colourCaption(White)));
}

void StylePanel::arrange() {
    auto* font = new QHBoxLayout;
    font->addWidget(cboFontName, 1);
    for (QWidget* control : {static_cast<QWidget*>(lblFontSize1), static_cast<QWidget*>(txtFontSize),
                             static_cast<QWidget*>(imgBold), static_cast<QWidget*>(imgItalic)})
        font->addWidget(control);

    auto* colour = new QHBoxLayout;
    colour->addWidget(picTextColor);
    colour->addWidget(cmdTextColor);
    colour->addWidget(lblTextColor, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    grid->setSpacing(Spacing);
    grid->addWidget(txbWriteText, 0, 0);
    grid->addLayout(font, 1, 0);
    grid->addLayout(colour, 2, 0);
    grid->addWidget(shpTextSample, 0, 1, 3, 1);
}

void StylePanel::connectHandlers() {
    connect(cboFontName, &QComboBox::activated, this, &StylePanel::cboFontName_Click);
    connect(cboFontName, &QComboBox::editTextChanged, this, &StylePanel::UpdateTextSample);
    connect(cboFontName->lineEdit(), &QLineEdit::returnPressed, this, &StylePanel::checkTypedFont);
    connect(txtFontSize, &QComboBox::editTextChanged, this, &StylePanel::txtFontSize_Change);
    new TypingFilter(*txtFontSize->lineEdit(),
                     [this](std::int16_t& keyAscii) { txtFontSize_KeyPress(keyAscii); });
    connect(imgBold, &QToolButton::clicked, this, &StylePanel::imgBold_Click);
    connect(imgItalic, &QToolButton::clicked, this, &StylePanel::imgItalic_Click);
    connect(cmdTextColor, &QPushButton::clicked, this, &StylePanel::cmdTextColor_Click);
}

bool StylePanel::CheckTextInputs() {
    QString problem;
    if (!m_work.ImageLoaded)
        problem = QStringLiteral("Pas d'image chargée !");
    else if (txbWriteText->text().trimmed().isEmpty())
        problem = QStringLiteral("Pas de texte !");
    else if (!isSizeInRange())
        problem = QStringLiteral("La taille du texte doit être comprise entre 6 et 99 !");
    else
        return true;
    showInputError(m_dialogs, problem);
    return false;
}

void StylePanel::ApplyTextFont(Surface& surface) const {
    surface.setFont(chosenFont());
    surface.setForeColor(picTextColor->BackColor());
}

void StylePanel::UpdateTextSample() {
    if (!isSizeInRange()) {
        lblTextSample->clear();
        lblTextSample->setAccessibleDescription(QString());
        return;
    }
    const Colour colour = picTextColor->BackColor();
    lblTextSample->setText(QStringLiteral("Aa"));
    lblTextSample->setBackColor(sampleGround(colour));
    QPalette palette = lblTextSample->palette();
    palette.setColor(QPalette::WindowText, QColor(toPixel(colour)));
    lblTextSample->setPalette(palette);
    lblTextSample->setFont(chosenFont());
    lblTextSample->setAccessibleDescription(fontInWords());
}

void StylePanel::DispDialogColor(Colour colour) {
    if (colour == InvalidColour)
        return;
    ColorRed = static_cast<std::int16_t>(redOf(colour));
    ColorGreen = static_cast<std::int16_t>(greenOf(colour));
    ColorBlue = static_cast<std::int16_t>(blueOf(colour));
    picTextColor->setBackColor(rgb(ColorRed, ColorGreen, ColorBlue));
    UpdateTextSample();
    lblTextColor->setText(colourCaption(picTextColor->BackColor()));
    Q_EMIT pictureFocusRequested();
}

void StylePanel::cboFontName_Click() {
    const QString chosen = cboFontName->currentText();
    if (fontAvailability(chosen) == FontAvailability::Missing)
        showInputError(m_dialogs, chosen + QStringLiteral(" Non disponible sur cet ordinateur !"));
    UpdateTextSample();
}

void StylePanel::checkTypedFont() {
    // The box announces one press of Return twice.
    QLineEdit& edit = *cboFontName->lineEdit();
    if (!edit.isModified())
        return;
    edit.setModified(false);
    cboFontName_Click();
}

void StylePanel::txtFontSize_KeyPress(std::int16_t& keyAscii) {
    keyAscii = FilterNumericKey(keyAscii);
}

void StylePanel::txtFontSize_Change() {
    if (numericValue(txtFontSize->currentText()) <= 0) {
        txtFontSize->setEditText(QString::number(SmallestSize));
        // So that the next digit replaces it instead of making sixty-something.
        txtFontSize->lineEdit()->selectAll();
    }
    Q_EMIT pickerReleased();
    UpdateTextSample();
}

void StylePanel::imgBold_Click() {
    toggle(*imgBold);
}

void StylePanel::imgItalic_Click() {
    toggle(*imgItalic);
}

void StylePanel::cmdTextColor_Click() {
    Q_EMIT pickerReleased();
    trapErrors(m_dialogs, QStringLiteral("cmdTextColor_click"),
               [this] { DispDialogColor(CommonDialog1.AskColour(picTextColor->BackColor())); });
    Q_EMIT pictureFocusRequested();
}

void StylePanel::toggle(ImageButton& button) {
    button.setAppearance(button.Appearance() == 1 ? 0 : 1);
    UpdateTextSample();
}

bool StylePanel::isSizeInRange() const {
    const double points = roundHalfEven(numericValue(txtFontSize->currentText()));
    return points >= SmallestSize && points <= LargestSize;
}

QString StylePanel::fontInWords() const {
    QStringList words = {cboFontName->currentText(), txtFontSize->currentText() + QStringLiteral(" points")};
    for (const ImageButton* style : {imgBold, imgItalic})
        if (style->isOn())
            words.append(style->accessibleName().toLower());
    return words.join(QStringLiteral(", "));
}

QFont StylePanel::chosenFont() const {
    return textFont(cboFontName->currentText(), numericValue(txtFontSize->currentText()), imgBold->isOn(),
                    imgItalic->isOn());
}

} // namespace ovrano
