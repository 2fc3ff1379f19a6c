#pragma once

#include <ZRPlatform/Accelerate/vImage.h>
