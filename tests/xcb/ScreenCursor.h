// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPoint>
#include <qwindowdefs.h>

// After all of Qt's: these headers define words such as KeyPress and None.
#include <X11/extensions/Xfixes.h>
#undef Bool
#undef CursorShape
#undef Expose
#undef FocusIn
#undef FocusOut
#undef KeyPress
#undef KeyRelease
#undef None
#undef Status
#undef Unsorted

/// The cursor that the X server shows at this moment: its size, hot spot and pixels. Empty without
/// a server.
inline QByteArray screenCursor() {
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return {};
    QByteArray result;
    if (XFixesCursorImage* image = XFixesGetCursorImage(display)) {
        for (const unsigned short number : {image->width, image->height, image->xhot, image->yhot})
            result += QByteArray::number(number) + ' ';
        for (int i = 0; i < image->width * image->height; ++i)
            result += QByteArray::number(static_cast<qulonglong>(image->pixels[i]), 16) + ' ';
        XFree(image);
    }
    XCloseDisplay(display);
    return result;
}

/// Where the top-left corner of a window is on the screen by the server's account, which Qt hears
/// of with a delay.
inline QPoint screenOrigin(WId window) {
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return {};
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &x, &y, &child);
    XCloseDisplay(display);
    return {x, y};
}

/// Whether a window manager has put a frame around a window, which it does and undoes with a delay.
inline bool isFramed(WId window) {
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display, window, &root, &parent, &children, &count);
    if (children)
        XFree(children);
    XCloseDisplay(display);
    return parent != root;
}
