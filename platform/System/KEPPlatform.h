#pragma once

// Visibility of what the application offers to the modules it loads: every platform function and
// class has this one mark.
#define KEP_PLATFORM __attribute__((visibility("default")))
