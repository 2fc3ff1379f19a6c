#pragma once

#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>
#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/CoreGraphics/CGColor.h>
#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/CoreGraphics/CGDataProvider.h>
#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/CoreGraphics/CGGradient.h>
#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/CoreGraphics/CGPath.h>
