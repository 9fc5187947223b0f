#pragma once

#include "Base/ExportFormat.h"
#include "IconExport.h"

// Puts one icon on the clipboard in one format. The picker copies through
// this, so it can be built and tested without the clipboard.
class IconCopier {
public:
    virtual ~IconCopier() = default;
    // True when the clipboard now holds the icon; failures are reported by
    // the copier itself.
    virtual bool copy(const IconExport& icon, ExportFormat format) = 0;
};
