#include "scenarios/accessibleobject.h"

#include "support/inputerror.h"

namespace ovrano::testing {

QString AccessibleObject::title() const {
    if (role != QStringLiteral("combo box"))
        return name;
    return labels.isEmpty() ? QString() : labels.first();
}

void visit(const AccessibleObject& object,
           const std::function<void(const AccessibleObject&, const AccessibleObject&)>& visitor) {
    for (const AccessibleObject& child : object.children) {
        visitor(child, object);
        visit(child, visitor);
    }
}

std::vector<AccessibleObject> controlsIn(const AccessibleObject& window) {
    std::vector<AccessibleObject> controls;
    visit(window, [&](const AccessibleObject& object, const AccessibleObject& parent) {
        if (object.isFocusable() && !object.isPartOf(parent))
            controls.push_back(object);
    });
    return controls;
}

const AccessibleObject& find(const AccessibleObject& within, QStringView spoken) {
    const AccessibleObject* found = nullptr;
    visit(within, [&](const AccessibleObject& object, const AccessibleObject&) {
        if (!found && object.spoken() == spoken)
            found = &object;
    });
    if (!found)
        throw InputError(QStringLiteral("no \"%1\" in \"%2\"").arg(spoken.toString(), within.spoken()));
    return *found;
}

} // namespace ovrano::testing
