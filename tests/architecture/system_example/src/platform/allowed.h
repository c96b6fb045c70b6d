// A condition that the check must not report, because this folder may test for the system.
#pragma once

#ifdef __linux__
#endif
