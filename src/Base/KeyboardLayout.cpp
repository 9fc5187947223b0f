#include "KeyboardLayout.h"

#include <QMutex>

namespace {
// Its constexpr constructor cannot throw; the check only sees no noexcept.
QMutex currentMutex; // NOLINT(cert-err58-cpp)
std::shared_ptr<const KeyboardLayout>& currentLayout()
{
    static std::shared_ptr<const KeyboardLayout> layout;
    return layout;
}
} // namespace

std::shared_ptr<const KeyboardLayout> KeyboardLayout::current()
{
    const QMutexLocker lock(&currentMutex);
    return currentLayout();
}

void KeyboardLayout::setCurrent(std::shared_ptr<const KeyboardLayout> layout)
{
    const QMutexLocker lock(&currentMutex);
    currentLayout() = std::move(layout);
}
