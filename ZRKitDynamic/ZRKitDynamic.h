#pragma once

/// @file
/// Everything the kit offers.

#include <ZRKitDynamic/ZRAnimation/ZRAnimation.h>
#include <ZRKitDynamic/ZRButton/ZRButton.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRKitDynamic/ZRGesture/ZRSwipeGesture.h>
#include <ZRKitDynamic/ZRImage/UIImage+Help.h>
#include <ZRKitDynamic/ZRImage/ZRImage.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewDelegate.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTipsAlertView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRToastView.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBarDelegate.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTTableViewController.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewDataSource.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowAction.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowButton.h>
#include <ZRKitDynamic/ZRView/ZRShadowAnimationView.h>
