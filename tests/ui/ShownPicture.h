// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/ScreenshotImage.h"

namespace ardeno {

// The picture of the checkpoint on screen; null when there is none.
inline ScreenshotImage *shownPicture(const WindowFixture &fixture)
{
    const auto images = fixture.window->content()->findChildren<QAbstractButton *>();
    for (QAbstractButton *const image : images) {
        if (auto *const picture = dynamic_cast<ScreenshotImage *>(image); picture && picture->isVisible())
            return picture;
    }
    return nullptr;
}

} // namespace ardeno
