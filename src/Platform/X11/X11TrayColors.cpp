#include "X11TrayColors.h"

#include "Xcb.h"

#include <QByteArray>

namespace X11TrayColors {
namespace {

xcb_atom_t atom(xcb_connection_t* connection, const QByteArray& name)
{
    const Xcb::Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 1, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

std::optional<QColor> fromProperty(const quint32* values, int count)
{
    if (!values || count < 3)
        return std::nullopt;
    const auto channel = [](quint32 value) { return static_cast<int>((value & 0xffff) >> 8); };
    return QColor(channel(values[0]), channel(values[1]), channel(values[2]));
}

std::optional<QColor> foreground()
{
    xcb_connection_t* connection = Xcb::qtConnection();
    if (!connection)
        return std::nullopt;
    const xcb_atom_t selection = atom(connection, QByteArrayLiteral("_NET_SYSTEM_TRAY_S0"));
    const xcb_atom_t colors = atom(connection, QByteArrayLiteral("_NET_SYSTEM_TRAY_COLORS"));
    if (selection == XCB_ATOM_NONE || colors == XCB_ATOM_NONE)
        return std::nullopt;
    const Xcb::Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE)
        return std::nullopt;
    const Xcb::Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, owner->owner, colors, XCB_ATOM_CARDINAL, 0, 12),
        nullptr));
    if (!property || property->format != 32)
        return std::nullopt;
    const int count = xcb_get_property_value_length(property.get()) / 4;
    return fromProperty(static_cast<const quint32*>(xcb_get_property_value(property.get())), count);
}

} // namespace X11TrayColors
