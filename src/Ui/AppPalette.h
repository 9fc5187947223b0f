#pragma once

#include "Base/PreferenceOptions.h"

#include <QPalette>
#include <optional>

// The application palette an appearance setting asks for; nullopt for
// `system`, which keeps the desktop's own.
namespace AppPalette {

std::optional<QPalette> forMode(AppearanceMode mode);

} // namespace AppPalette
