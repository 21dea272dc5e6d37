#pragma once

#include "support/User.h"

using BackupFixture = User;
