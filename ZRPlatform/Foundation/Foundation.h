#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/Foundation/NSDate.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/NSThread.h>
#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/Foundation/NSTypes.h>
#include <ZRPlatform/Foundation/NSValue.h>
#include <ZRPlatform/Foundation/Ref.h>
#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/Foundation/Weak.h>
