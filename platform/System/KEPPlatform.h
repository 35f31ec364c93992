#pragma once

// Visibility of what the application offers to the modules it loads: the one mark that every
// platform function and class carries.
#define KEP_PLATFORM __attribute__((visibility("default")))
