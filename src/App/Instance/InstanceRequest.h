#pragma once

#include "Picker/PickerTab.h"

#include <QByteArray>
#include <optional>

// What another `pictray` process asks the running instance to do. On the wire
// each request is one line of UTF-8 text ("toggle", "show favorites",
// "copy-last", "reopen"); the answer is one line, "ok" or "error " and a
// message for the user.
struct InstanceRequest {
    enum class Kind { reopen, toggle, show, copyLast };

    Kind kind = Kind::reopen;
    // For show: the tab to open on; none leaves the picker's own choice.
    std::optional<PickerTab> tab;

    QByteArray encode() const;
    static std::optional<InstanceRequest> decode(const QByteArray& line);

    // "favorites", "recents", "all"; nullopt for anything else.
    static std::optional<PickerTab> tabNamed(QStringView name);
};

struct InstanceReply {
    bool ok = true;
    QString message; // shown to the user when not ok

    QByteArray encode() const;
    // Control and format characters are left out of the message.
    static InstanceReply decode(const QByteArray& line);
};
