#pragma once

#include "devkit/store/Database.h"

namespace devkit {

/// Makes the tables and the sample account in an empty database; leaves one that has them alone.
/// Several processes may do it at once. Throws when a later version of the kit made the tables.
void prepareSchema(Database &database);

}  // namespace devkit
