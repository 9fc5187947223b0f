#include "Catalog/IconLibrary.h"
#include "Preferences.h"
#include "UserLibrary.h"

// Apart from UserLibrary.cpp, so that code using an isolated library does not
// pull in the whole catalogue.
UserLibrary& UserLibrary::shared()
{
    static UserLibrary library(
        Preferences::shared().store(), Preferences::shared(),
        [](const QString& name) { return !IconLibrary::shared().icon(name).isNull(); });
    return library;
}
