// SPDX-License-Identifier: MIT
#pragma once

namespace zembra {

/// Gives up what a painter left in the upper halves of the processor's vector registers.
///
/// Painters use vector instructions of all widths, and some leave values behind. Until those are
/// given up, each of our narrower instructions waits for them, which makes loops over samples and
/// pixels slower by a fifth.
void releaseWideRegisters();

} // namespace zembra
