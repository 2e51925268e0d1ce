#include "bridges/usb_desk.h"
