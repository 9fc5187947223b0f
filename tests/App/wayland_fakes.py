#!/usr/bin/python3
"""Stand-ins on a private session bus for what a Wayland desktop offers.

  wayland_fakes.py portal LOG   the desktop portal's GlobalShortcuts and
                                RemoteDesktop (keyboard only)
  wayland_fakes.py watcher LOG  a StatusNotifierWatcher with a host

Each call is written as a line to LOG, for the test to wait on. The portal
remembers bound shortcuts while it runs (a desktop keeps them across starts),
and app.pictray.Test.Trigger(ID) sends Activated(ID) to the last session.
RemoteDesktop's Start stands for the consent dialog: it logs "Start asked"
unless the session came with the restore token it gave last, and refuses
after app.pictray.Test.Refuse().
"""
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
mode, log_path = sys.argv[1], sys.argv[2]


def log(line):
    with open(log_path, "a", encoding="utf-8") as out:
        out.write(line + "\n")


PORTAL_PATH = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"


REMOTE = "org.freedesktop.portal.RemoteDesktop"


class Request(dbus.service.Object):
    """Answers once, after the method call has returned, as a portal does."""

    def __init__(self, sender, token, results, response=0):
        path = "%s/request/%s/%s" % (PORTAL_PATH, sender[1:].replace(".", "_"), token)
        super().__init__(bus, path)
        self.path = path
        GLib.idle_add(self._answer, response, results)

    def _answer(self, response, results):
        self.Response(dbus.UInt32(response), dbus.Dictionary(results, signature="sv"))
        self.remove_from_connection()
        return False

    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, response, results):
        pass


def shortcut_list(bound):
    return dbus.Array(
        [dbus.Struct((sid, dbus.Dictionary(props, signature="sv"))) for sid, props in bound.items()],
        signature="(sa{sv})")


def session_path(sender, options):
    return "%s/session/%s/%s" % (PORTAL_PATH, sender[1:].replace(".", "_"),
                                 options["session_handle_token"])


class Session(dbus.service.Object):
    def __init__(self, path):
        super().__init__(bus, path)

    @dbus.service.method("org.freedesktop.portal.Session")
    def Close(self):
        log("Session.Close")
        self.remove_from_connection()

    @dbus.service.signal("org.freedesktop.portal.Session", signature="a{sv}")
    def Closed(self, details):
        pass


class RemoteDesktop(dbus.service.Object):
    """The keyboard of a remote desktop session; a base class of Portal, since
    both interfaces have a CreateSession on the one object."""

    def __init__(self):
        super().__init__(bus, PORTAL_PATH)
        self.token_given = None
        self.restoring = False
        self.refuse = False
        self.generation = 0

    @dbus.service.method(REMOTE, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender=None):
        path = session_path(sender, options)
        self.remote_session = Session(path)
        log("RemoteDesktop.CreateSession")
        return Request(sender, options["handle_token"], {"session_handle": path}).path

    @dbus.service.method(REMOTE, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def SelectDevices(self, session, options, sender=None):
        token = str(options.get("restore_token", ""))
        self.restoring = bool(token) and token == self.token_given
        log("SelectDevices types=%d persist=%d token=%s" % (
            options.get("types", 0), options.get("persist_mode", 0), token or "-"))
        return Request(sender, options["handle_token"], {}).path

    @dbus.service.method(REMOTE, in_signature="osa{sv}", out_signature="o", sender_keyword="sender")
    def Start(self, session, parent, options, sender=None):
        if self.refuse:
            log("Start refused")
            return Request(sender, options["handle_token"], {}, response=1).path
        log("Start %s" % ("restored" if self.restoring else "asked"))
        self.generation += 1
        self.token_given = "consent-%d" % self.generation
        return Request(sender, options["handle_token"], {
            "devices": dbus.UInt32(1), "restore_token": self.token_given}).path

    @dbus.service.method(REMOTE, in_signature="oa{sv}iu")
    def NotifyKeyboardKeysym(self, session, options, keysym, state):
        log("Keysym %d %d" % (keysym, state))

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        values = {(REMOTE, "AvailableDeviceTypes"): dbus.UInt32(1),
                  (REMOTE, "version"): dbus.UInt32(2),
                  (SHORTCUTS, "version"): dbus.UInt32(2)}
        return values[(interface, name)]

    @dbus.service.method("app.pictray.Test")
    def Refuse(self):
        """The user ends the running session and refuses the next one."""
        self.refuse = True
        self.remote_session.Closed(dbus.Dictionary({}, signature="sv"))


class Portal(RemoteDesktop):
    def __init__(self):
        super().__init__()
        self.bound = {}
        self.session = None

    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender=None):
        self.session = session_path(sender, options)
        log("CreateSession")
        return Request(sender, options["handle_token"], {"session_handle": self.session}).path

    @dbus.service.method(SHORTCUTS, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def ListShortcuts(self, session, options, sender=None):
        log("ListShortcuts %s" % " ".join(sorted(self.bound)))
        return Request(sender, options["handle_token"], {"shortcuts": shortcut_list(self.bound)}).path

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o",
                         sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender=None):
        for sid, props in shortcuts:
            trigger = str(props.get("preferred_trigger", ""))
            self.bound[str(sid)] = {"description": props.get("description", ""),
                                    "trigger_description": trigger}
        log("BindShortcuts %s" % " ".join(
            "%s=%s" % (sid, props["trigger_description"]) for sid, props in sorted(self.bound.items())))
        return Request(sender, options["handle_token"], {"shortcuts": shortcut_list(self.bound)}).path

    @dbus.service.method(SHORTCUTS, in_signature="osa{sv}")
    def ConfigureShortcuts(self, session, parent, options):
        log("ConfigureShortcuts")

    @dbus.service.signal(SHORTCUTS, signature="osta{sv}")
    def Activated(self, session, shortcut, timestamp, options):
        pass

    @dbus.service.method("app.pictray.Test", in_signature="s")
    def Trigger(self, shortcut):
        log("Trigger %s" % shortcut)
        self.Activated(self.session, shortcut, dbus.UInt64(0), dbus.Dictionary({}, signature="sv"))


WATCHER = "org.kde.StatusNotifierWatcher"


class Watcher(dbus.service.Object):
    def __init__(self):
        super().__init__(bus, "/StatusNotifierWatcher")
        self.items = []

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        # Qt registers its item by the bus name it took for it.
        self.items.append(service if service.startswith(":") or "." in service else sender)
        log("RegisterStatusNotifierItem %s" % service)
        self.StatusNotifierItemRegistered(service)

    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierHost(self, service):
        pass

    @dbus.service.signal(WATCHER, signature="s")
    def StatusNotifierItemRegistered(self, service):
        pass

    @dbus.service.signal(WATCHER, signature="")
    def StatusNotifierHostRegistered(self):
        pass

    def properties(self):
        return {"RegisteredStatusNotifierItems": dbus.Array(self.items, signature="s"),
                "IsStatusNotifierHostRegistered": True,
                "ProtocolVersion": dbus.Int32(0)}

    # Qt reads the properties through an introspected interface.
    @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s",
                         path_keyword="object_path", connection_keyword="connection")
    def Introspect(self, object_path, connection):
        xml = super().Introspect(object_path, connection)
        return xml.replace('<interface name="%s">' % WATCHER, '<interface name="%s">\n'
                           '    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>\n'
                           '    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>\n'
                           '    <property name="ProtocolVersion" type="i" access="read"/>' % WATCHER)

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return self.properties()[name]

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, interface):
        return self.properties()


if mode == "portal":
    keep = Portal()
    name = dbus.service.BusName("org.freedesktop.portal.Desktop", bus)
else:
    keep = Watcher()
    name = dbus.service.BusName(WATCHER, bus)
log("ready")
GLib.MainLoop().run()
