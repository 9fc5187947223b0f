#include "XkbKeyboardLayout.h"

#include "Base/VirtualKeys.h"

#include <array>
#include <utility>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace {

struct ContextDeleter {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
struct KeymapDeleter {
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
};
struct StateDeleter {
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
using ContextPtr = std::unique_ptr<xkb_context, ContextDeleter>;
using KeymapPtr = std::unique_ptr<xkb_keymap, KeymapDeleter>;
using StatePtr = std::unique_ptr<xkb_state, StateDeleter>;

// Dead keys type nothing by themselves; name them by their accent, as a
// layout's key cap shows them.
QString deadKeyAccent(xkb_keysym_t sym)
{
    static constexpr std::array<std::pair<xkb_keysym_t, char16_t>, 13> accents{{
        {XKB_KEY_dead_grave, u'`'},
        {XKB_KEY_dead_acute, u'\u00B4'},
        {XKB_KEY_dead_circumflex, u'^'},
        {XKB_KEY_dead_tilde, u'~'},
        {XKB_KEY_dead_macron, u'\u00AF'},
        {XKB_KEY_dead_breve, u'\u02D8'},
        {XKB_KEY_dead_abovedot, u'\u02D9'},
        {XKB_KEY_dead_diaeresis, u'\u00A8'},
        {XKB_KEY_dead_abovering, u'\u02DA'},
        {XKB_KEY_dead_doubleacute, u'\u02DD'},
        {XKB_KEY_dead_caron, u'\u02C7'},
        {XKB_KEY_dead_cedilla, u'\u00B8'},
        {XKB_KEY_dead_ogonek, u'\u02DB'},
    }};
    for (const auto& [dead, accent] : accents) {
        if (dead == sym)
            return QString(QChar(accent));
    }
    return QString();
}

QString symbolText(xkb_keysym_t sym)
{
    if (QString accent = deadKeyAccent(sym); !accent.isEmpty())
        return accent;
    std::array<char, 64> buffer{};
    if (xkb_keysym_to_utf8(sym, buffer.data(), buffer.size()) <= 0)
        return QString();
    QString text = QString::fromUtf8(buffer.data());
    // Return, Tab, Escape and the like map to control characters.
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            return QString();
    }
    return text;
}

class XkbLayout : public KeyboardLayout {
public:
    XkbLayout(ContextPtr context, KeymapPtr keymap, xcb_connection_t* connection = nullptr,
              int32_t deviceId = -1)
        : m_context(std::move(context)), m_keymap(std::move(keymap)), m_connection(connection),
          m_deviceId(deviceId)
    {
    }

    QString keyText(quint32 virtualKeyCode) const override
    {
        const auto keycode = VirtualKeys::xkbKeycode(virtualKeyCode);
        if (!keycode)
            return QString();
        const StatePtr state = currentState();
        if (!state)
            return QString();
        // The active group, with no modifier: level 0 of the key.
        const xkb_layout_index_t group = xkb_state_key_get_layout(state.get(), *keycode);
        if (group == XKB_LAYOUT_INVALID)
            return QString();
        const xkb_keysym_t unshifted = symAt(*keycode, group, 0);
        if (QString text = symbolText(unshifted); !text.isEmpty() || !isKeypad(unshifted))
            return text;
        // A keypad key's first level moves the cursor (KP_End); its cap shows
        // what it types with NumLock on, found on a later level.
        const xkb_level_index_t levels =
            xkb_keymap_num_levels_for_key(m_keymap.get(), *keycode, group);
        for (xkb_level_index_t level = 1; level < levels; ++level) {
            const xkb_keysym_t sym = symAt(*keycode, group, level);
            if (QString text = symbolText(sym); isKeypad(sym) && !text.isEmpty())
                return text;
        }
        return QString();
    }

    // Qt's key events on X11 and Wayland carry the xkb keycode.
    std::optional<quint32> virtualKeyCode(quint32 nativeScanCode) const override
    {
        if (nativeScanCode < evdevOffset)
            return std::nullopt;
        return VirtualKeys::virtualKeyCode(nativeScanCode - evdevOffset);
    }

private:
    static constexpr quint32 evdevOffset = 8;

    static bool isKeypad(xkb_keysym_t sym)
    {
        return sym >= XKB_KEY_KP_Space && sym <= XKB_KEY_KP_Equal;
    }

    // The one symbol at a level; none when the level has several or none.
    xkb_keysym_t symAt(xkb_keycode_t keycode, xkb_layout_index_t group,
                       xkb_level_index_t level) const
    {
        const xkb_keysym_t* syms = nullptr;
        const int count =
            xkb_keymap_key_get_syms_by_level(m_keymap.get(), keycode, group, level, &syms);
        return count == 1 ? syms[0] : XKB_KEY_NoSymbol;
    }

    StatePtr currentState() const
    {
        if (m_connection) {
            return StatePtr(
                xkb_x11_state_new_from_device(m_keymap.get(), m_connection, m_deviceId));
        }
        return StatePtr(xkb_state_new(m_keymap.get()));
    }

    ContextPtr m_context;
    KeymapPtr m_keymap;
    xcb_connection_t* m_connection;
    int32_t m_deviceId;
};

ContextPtr newContext()
{
    return ContextPtr(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
}

std::unique_ptr<KeyboardLayout> fromRuleNames(const xkb_rule_names* names)
{
    ContextPtr context = newContext();
    if (!context)
        return nullptr;
    KeymapPtr keymap(xkb_keymap_new_from_names(context.get(), names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return nullptr;
    return std::make_unique<XkbLayout>(std::move(context), std::move(keymap));
}

} // namespace

std::unique_ptr<KeyboardLayout> XkbKeyboardLayout::fromX11Server(xcb_connection_t* connection)
{
    if (!connection)
        return nullptr;
    if (!xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
        return nullptr;
    const int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    ContextPtr context = newContext();
    if (device < 0 || !context)
        return nullptr;
    KeymapPtr keymap(xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                                    XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return nullptr;
    return std::make_unique<XkbLayout>(std::move(context), std::move(keymap), connection, device);
}

std::unique_ptr<KeyboardLayout> XkbKeyboardLayout::fromEnvironment()
{
    return fromRuleNames(nullptr);
}

std::unique_ptr<KeyboardLayout> XkbKeyboardLayout::fromNames(const QString& layout,
                                                             const QString& variant)
{
    const QByteArray layoutName = layout.toUtf8();
    const QByteArray variantName = variant.toUtf8();
    xkb_rule_names names{};
    names.layout = layoutName.constData();
    names.variant = variant.isEmpty() ? nullptr : variantName.constData();
    return fromRuleNames(&names);
}

QString XkbKeyboardLayout::keysymName(quint32 virtualKeyCode)
{
    const auto keycode = VirtualKeys::xkbKeycode(virtualKeyCode);
    if (!keycode)
        return QString();
    static const ContextPtr context = newContext();
    static const KeymapPtr keymap(
        context ? xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr);
    if (!keymap)
        return QString();
    const xkb_keysym_t* syms = nullptr;
    if (xkb_keymap_key_get_syms_by_level(keymap.get(), *keycode, 0, 0, &syms) < 1)
        return QString();
    std::array<char, 64> name{};
    if (xkb_keysym_get_name(syms[0], name.data(), name.size()) <= 0)
        return QString();
    return QString::fromLatin1(name.data());
}
