#include "Commands.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

namespace Cli {
namespace {

bool knownKey(const QString& key, Io& io, int* status)
{
    if (Preferences::hasKey(key))
        return true;
    *status = usageError(
        io, QStringLiteral("unknown setting '%1' (pictray prefs list shows them all)").arg(key));
    return false;
}

int saved(Preferences& preferences, const QString& key, Io& io)
{
    // The running program trims the recents when the limit changes; so does this.
    if (key == u"recentsLimit")
        UserLibrary::shared().trimRecents();
    if (const auto error = preferences.store().writeError()) {
        io.err << "pictray: " << *error << '\n';
        return Status::failure;
    }
    return Status::ok;
}

} // namespace

int prefs(const QStringList& args, Io& io)
{
    const QString action = args.value(0, QStringLiteral("list"));
    const QStringList operands = args.mid(1);
    int status = Status::ok;
    Preferences& preferences = Preferences::shared();

    if (action == u"list" && operands.isEmpty()) {
        for (const QString& key : Preferences::keys())
            io.out << key << '=' << preferences.valueText(key) << '\n';
        return Status::ok;
    }
    if (action == u"get" && operands.size() == 1) {
        if (!knownKey(operands[0], io, &status))
            return status;
        io.out << preferences.valueText(operands[0]) << '\n';
        return Status::ok;
    }
    if (action == u"set" && operands.size() == 2) {
        if (!knownKey(operands[0], io, &status))
            return status;
        if (const auto error = preferences.setValueText(operands[0], operands[1])) {
            io.err << "pictray: " << *error << '\n';
            return Status::failure;
        }
        return saved(preferences, operands[0], io);
    }
    if (action == u"reset" && operands.size() == 1) {
        if (!knownKey(operands[0], io, &status))
            return status;
        preferences.reset(operands[0]);
        return saved(preferences, operands[0], io);
    }
    return usageError(io, QStringLiteral("prefs takes list, get KEY, set KEY VALUE or reset KEY"));
}

} // namespace Cli
