#include "Panel/OfferedFormats.h"
#include "Panel/PanelKeys.h"
#include "Platform/Xkb/XkbKeyboardLayout.h"

#include <QKeyEvent>
#include <QTest>

namespace {

// A key event as the platform delivers it, with the xkb keycode as its scan code.
QKeyEvent press(int key, Qt::KeyboardModifiers modifiers, quint32 scanCode = 0)
{
    return QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0);
}

QString effect(const PanelKeyAction& action)
{
    if (action.kind != PanelKeyAction::Kind::copy || !action.format)
        return action.kind == PanelKeyAction::Kind::none ? QString() : u"other"_qs;
    return u"copy:"_qs + rawValue(*action.format);
}

} // namespace

class TestPanelKeys : public QObject {
    Q_OBJECT

    std::unique_ptr<KeyboardLayout> azerty = XkbKeyboardLayout::fromNames(u"fr"_qs);

private slots:
    void initTestCase() { QVERIFY(azerty); }

    // The "⌃" shortcuts: Control on a Mac (Qt's Meta there), Alt elsewhere.
    void secondaryModifierFollowsTheRendition()
    {
        const QKeyEvent alt1 = press(Qt::Key_1, Qt::AltModifier);
        const QKeyEvent meta1 = press(Qt::Key_1, Qt::MetaModifier);
        QCOMPARE(effect(PanelKeys::actionFor(alt1, Rendition::pc, nullptr)), u"copy:svg"_qs);
        QCOMPARE(effect(PanelKeys::actionFor(meta1, Rendition::pc, nullptr)), QString());
        QCOMPARE(effect(PanelKeys::actionFor(meta1, Rendition::mac, nullptr)), u"copy:svg"_qs);
        QCOMPARE(effect(PanelKeys::actionFor(alt1, Rendition::mac, nullptr)), QString());
        QCOMPARE(OfferedFormats::shortcutFor(ExportFormat::vue, Rendition::pc),
                 QKeySequence(Qt::ALT | Qt::Key_3));
        QCOMPARE(OfferedFormats::shortcutFor(ExportFormat::vue, Rendition::mac),
                 QKeySequence(Qt::META | Qt::Key_3));
    }

    // AZERTY types "&" and "é" on the digit row without Shift: the layout
    // tells the row's place from the scan code.
    void shiftedDigitsCountByTheirKey()
    {
        const QKeyEvent ctrlAmpersand = press(Qt::Key_Ampersand, Qt::ControlModifier, 10);
        const QKeyEvent altEacute = press(Qt::Key_Eacute, Qt::AltModifier, 11);
        QCOMPARE(effect(PanelKeys::actionFor(ctrlAmpersand, Rendition::pc, azerty.get())),
                 u"copy:png1"_qs);
        QCOMPARE(effect(PanelKeys::actionFor(altEacute, Rendition::pc, azerty.get())),
                 u"copy:jsx"_qs);
        // Without a layout, or for a key off the digit row, nothing is guessed.
        QCOMPARE(effect(PanelKeys::actionFor(ctrlAmpersand, Rendition::pc, nullptr)), QString());
        const QKeyEvent ctrlQ = press(Qt::Key_Ampersand, Qt::ControlModifier, 24);
        QCOMPARE(effect(PanelKeys::actionFor(ctrlQ, Rendition::pc, azerty.get())), QString());
    }
};

QTEST_MAIN(TestPanelKeys)
#include "tst_panelkeys.moc"
