// The wheels' switches live with the session's other state.
#pragma once
#include "core/StatoRuote.h" // IWYU pragma: export
