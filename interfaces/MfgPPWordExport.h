#pragma once

// Visibility of what the module exports: every exported class and function has this one mark.
#define MFGPPWORD_EXPORT __attribute__((visibility("default")))
