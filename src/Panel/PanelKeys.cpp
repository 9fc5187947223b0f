#include "PanelKeys.h"

#include "Base/KeyboardLayout.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace {

using Kind = PanelKeyAction::Kind;

constexpr Qt::KeyboardModifiers countedModifiers =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
constexpr Qt::KeyboardModifiers primary = Qt::ControlModifier;

// The digit row's virtual key codes, for 0 to 9.
constexpr std::array<quint32, 10> digitRowKeys{29, 18, 19, 20, 21, 23, 22, 26, 28, 25};

// The key's character without Shift, lower case; null for other keys. With
// Ctrl held, Qt already reports the Latin letter of a non-Latin layout.
QChar typedKey(const QKeyEvent& event, const KeyboardLayout* layout)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
        key == Qt::Key_Comma)
        return QChar(key).toLower();
    const std::optional<quint32> code =
        layout ? layout->virtualKeyCode(event.nativeScanCode()) : std::nullopt;
    if (!code)
        return {};
    const auto digit = std::find(digitRowKeys.begin(), digitRowKeys.end(), *code);
    if (digit == digitRowKeys.end())
        return {};
    return QChar(u'0' + static_cast<char16_t>(digit - digitRowKeys.begin()));
}

PanelKeyAction act(Kind kind)
{
    return {kind, std::nullopt, {}};
}

PanelKeyAction copyAs(ExportFormat format)
{
    return {Kind::copy, format, {}};
}

PanelKeyAction moveBy(int dx, int dy)
{
    return {Kind::move, std::nullopt, {dx, dy}};
}

} // namespace

namespace PanelKeys {

Qt::KeyboardModifier secondaryModifier(Rendition rendition)
{
    return rendition == Rendition::mac ? Qt::MetaModifier : Qt::AltModifier;
}

PanelKeyAction actionFor(const QKeyEvent& event, Rendition rendition, const KeyboardLayout* layout)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & countedModifiers;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return act(modifiers == primary ? Kind::showFormatMenu : Kind::copy);
    case Qt::Key_Escape:
        return act(Kind::escape);
    case Qt::Key_PageUp:
        return moveBy(0, -5);
    case Qt::Key_PageDown:
        return moveBy(0, 5);
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: {
        // With a modifier the search field keeps them (Shift+Left selects).
        if (modifiers != Qt::NoModifier)
            return {};
        const int key = event.key();
        return moveBy(key == Qt::Key_Left    ? -1
                      : key == Qt::Key_Right ? 1
                                             : 0,
                      key == Qt::Key_Up     ? -1
                      : key == Qt::Key_Down ? 1
                                            : 0);
    }
    default:
        break;
    }

    const QChar typed = typedKey(event, layout);
    if (typed.isNull())
        return {};
    if (modifiers == primary) {
        switch (typed.unicode()) {
        case u'd':
            return act(Kind::toggleFavorite);
        case u'1':
            return copyAs(ExportFormat::png1);
        case u'2':
            return copyAs(ExportFormat::png2);
        case u'3':
            return copyAs(ExportFormat::png3);
        case u',':
            return act(Kind::openSettings);
        case u'f':
        case u'l':
            return act(Kind::focusSearch);
        case u'w':
            return act(Kind::close);
        case u'q':
            return act(Kind::quit);
        default:
            return {};
        }
    }
    if (modifiers == secondaryModifier(rendition) && typed >= u'1' && typed <= u'6')
        return copyAs(Formats::codeFormats().at(typed.unicode() - u'1'));
    if (modifiers == (primary | Qt::ShiftModifier) && (typed == u'o' || typed == u'f'))
        return act(Kind::toggleStyle);
    if (modifiers == (primary | Qt::ShiftModifier) && typed == u'a')
        return act(Kind::searchAll);
    return {};
}

bool isTyping(const QKeyEvent& event)
{
    constexpr Qt::KeyboardModifiers commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !(event.modifiers() & commands) && !text.isEmpty() && text.front().isPrint() &&
           !text.front().isSpace();
}

} // namespace PanelKeys
