#pragma once

#include <QByteArray>
#include <QString>

// wl-copy (wl-clipboard), where installed: it offers the clipboard through
// the compositor's data-control protocol, which needs no focused surface.
// wlroots compositors (Sway and others) take a client's own offer only with
// the serial of a newer input event than the last selection's, which Qt
// cannot give a copy made without a key press (the tray menu, copy-last);
// there wl-copy is the way that works.
namespace WlCopy {

bool isInstalled();
// Offers `data` as `mimeType`; an empty type clears the clipboard. Returns
// at once: wl-copy keeps serving the data in the background.
void offer(const QByteArray& data, const QString& mimeType);

} // namespace WlCopy
