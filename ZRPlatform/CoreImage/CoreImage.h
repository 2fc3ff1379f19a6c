#pragma once

#include <ZRPlatform/CoreImage/CIContext.h>
#include <ZRPlatform/CoreImage/CIFilter.h>
#include <ZRPlatform/CoreImage/CIImage.h>
