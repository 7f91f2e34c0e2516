// SPDX-License-Identifier: MIT
#include <zembra/data/SampleSource.h>

namespace zembra {

SampleSource::~SampleSource() = default;

} // namespace zembra
