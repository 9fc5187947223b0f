#include "HotKeyBackend.h"
#include "NullHotKeyBackend.h"

#ifdef PICTRAY_X11_HOTKEYS
#include "X11HotKeyBackend.h"
#endif

std::unique_ptr<HotKeyBackend> HotKeyBackend::forPlatform()
{
#ifdef PICTRAY_X11_HOTKEYS
    if (auto x11 = X11HotKeyBackend::create())
        return x11;
#endif
    return std::make_unique<NullHotKeyBackend>();
}
