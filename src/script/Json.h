#pragma once

#include "text/Json.h"

namespace lumbra::script {

using lumbra::Json;

} // namespace lumbra::script
