// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Observable.h"
#include "support/Preferences.h"

namespace ardeno {

// Every change of the property goes into the settings, as long as the result lives; both outlive it.
template <typename T>
[[nodiscard]] QPropertyNotifier mirror(const Observable<T> &property, Preferences &preferences, PreferenceKey<T> key)
{
    return property.addNotifier([&property, &preferences, key] { preferences.setValue(key, property()); });
}

} // namespace ardeno
