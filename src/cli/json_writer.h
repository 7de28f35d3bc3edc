#pragma once

#include "exchange/json_writer.h"

namespace hourwright::cli {

using exchange::JsonWriter;

} // namespace hourwright::cli
