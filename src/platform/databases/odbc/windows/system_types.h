#pragma once

// The interface's own headers take this system's types from here.
#include <windows.h>
