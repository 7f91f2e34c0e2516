// SPDX-License-Identifier: MIT
#include <zembra/chart/Theme.h>

namespace zembra {

Theme Theme::light() {
    Theme theme;
    // Source: M. Okabe, K. Ito, "Color Universal Design", 2008; its yellow darkened for white
    // paper.
    theme.cycle = {{0, 114, 178}, {213, 94, 0},   {0, 158, 115}, {204, 121, 167},
                   {230, 159, 0}, {86, 180, 233}, {148, 130, 0}, {90, 90, 90}};
    return theme;
}

} // namespace zembra
