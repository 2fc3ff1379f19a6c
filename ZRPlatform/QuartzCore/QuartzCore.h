#pragma once

#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/QuartzCore/Animations/CAMediaTimingFunction.h>
#include <ZRPlatform/QuartzCore/Composition/Compositor.h>
#include <ZRPlatform/QuartzCore/Layers/CALayer.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>
