#pragma once

/// @file
/// Everything the kit offers.

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRKitDynamic/ZRImage/ZRImage.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewDelegate.h>
