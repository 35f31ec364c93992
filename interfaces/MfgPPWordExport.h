#pragma once

// Visibility of what the module offers: the one mark that every exported class and function
// carries.
#define MFGPPWORD_EXPORT __attribute__((visibility("default")))
