#pragma once

// The tray program (`pictray` without arguments runs it): the tray
// application, or, when one already runs for this user, a request to it to
// come forward.
namespace Shell {

int runTray(int argc, char* argv[]);

} // namespace Shell
