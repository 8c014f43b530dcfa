#include "app/nextstep.h"

#include <QEvent>

namespace ovrano {

namespace {

QString aboutBlock(const Situation& situation) {
    if (situation.blockFromPaste)
        return QStringLiteral("Faites glisser l'image collée à sa place, puis cliquez à côté pour la fixer");
    return situation.blockSeeThrough
               ? QStringLiteral("Faites glisser le texte à sa place, puis cliquez à côté pour le fixer")
               : QStringLiteral("Faites glisser la zone à sa place, puis cliquez à côté pour la fixer");
}

} // namespace

QString nextStep(const Situation& situation) {
    if (situation.pickerOn)
        return QStringLiteral("Cliquez dans l'image sur la couleur que prendra le texte");
    if (situation.zoneMode && situation.blockLifted)
        return aboutBlock(situation);
    if (situation.zoneMode) // a band drawn to the left or upwards lifts nothing
        return QStringLiteral("Tracez un cadre autour de la zone, du coin en haut à gauche vers la droite");
    if (!situation.textToolsShown)
        return QStringLiteral("Pour écrire un autre texte, choisissez-le dans le menu Texte");
    return situation.textTyped
               ? QStringLiteral("Tapez et réglez votre texte, puis cliquez sur « Créer le texte 3D »")
               : QStringLiteral("Tapez votre texte dans la case en haut à gauche");
}

NextStep::NextStep(const WorkPicture& work, const LiftedBlock& block, const ImageButton& imgRegion,
                   const ImageButton& imgColorPicker, const QLineEdit& txbWriteText, QWidget& textTools,
                   QObject* parent)
    : QObject(parent)
    , m_block(block)
    , m_imgRegion(imgRegion)
    , m_imgColorPicker(imgColorPicker)
    , m_txbWriteText(txbWriteText)
    , m_textTools(textTools) {
    m_settled.setSingleShot(true);
    m_settled.setInterval(0);
    connect(&m_settled, &QTimer::timeout, this, &NextStep::tell);
    // Whatever lifts, moves or drops a block draws on the picture.
    connect(&work.picDisp, &Surface::changed, &m_settled, qOverload<>(&QTimer::start));
    connect(&txbWriteText, &QLineEdit::textChanged, &m_settled, qOverload<>(&QTimer::start));
    for (const ImageButton* button : {&imgRegion, &imgColorPicker})
        connect(button, &ImageButton::AppearanceChanged, &m_settled, qOverload<>(&QTimer::start));
    textTools.installEventFilter(this);
    m_settled.start();
}

bool NextStep::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        m_settled.start();
    return QObject::eventFilter(watched, event);
}

Situation NextStep::situation() const {
    return {.pickerOn = m_imgColorPicker.isOn(),
            .zoneMode = m_imgRegion.isOn(),
            .blockLifted = m_block.HasSelection,
            .blockFromPaste = m_block.BlockFromPaste,
            .blockSeeThrough = m_block.TransparentPaste,
            .textToolsShown = !m_textTools.isHidden(),
            .textTyped = !m_txbWriteText.text().trimmed().isEmpty()};
}

void NextStep::tell() {
    const QString sentence = nextStep(situation());
    if (sentence == m_told)
        return;
    m_told = sentence;
    Q_EMIT changed(sentence);
}

} // namespace ovrano
