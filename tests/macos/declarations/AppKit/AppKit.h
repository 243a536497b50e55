#pragma once

// What the backend calls of AppKit, as Apple documents it.
#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#define APPKIT_EXTERN extern "C"

NS_ASSUME_NONNULL_BEGIN

@class NSGraphicsContext, NSImage, NSMenu, NSRunningApplication, NSScreen, NSStatusBarButton, NSStatusItem,
    NSWindow;

typedef NSString* NSDeviceDescriptionKey;

APPKIT_EXTERN NSNotificationName NSApplicationDidChangeScreenParametersNotification;

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@property(readonly, copy) NSDictionary<NSDeviceDescriptionKey, id>* deviceDescription;
@property(readonly) CGFloat backingScaleFactor API_AVAILABLE(macos(10.7));
@property(readonly, copy) NSString* localizedName API_AVAILABLE(macos(10.15));
@end

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskMouseMoved = 1ULL << 5,
    NSEventMaskLeftMouseDragged = 1ULL << 6,
};

@interface NSEvent : NSObject <NSCopying>
@property(class, readonly) NSPoint mouseLocation;
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                             handler:(void (^)(NSEvent* event))block
    API_AVAILABLE(macos(10.6));
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block
    API_AVAILABLE(macos(10.6));
+ (void)removeMonitor:(id)eventMonitor API_AVAILABLE(macos(10.6));
@end

APPKIT_EXTERN NSNotificationName NSApplicationDidFinishLaunchingNotification;

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited,
};

@interface NSApplication : NSObject
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy API_AVAILABLE(macos(10.6));
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps API_DEPRECATED("", macos(10.0, API_TO_BE_DEPRECATED));
- (void)activate API_AVAILABLE(macos(14.0));
@end

APPKIT_EXTERN NSNotificationName NSWorkspaceDidLaunchApplicationNotification;
APPKIT_EXTERN NSNotificationName NSWorkspaceDidTerminateApplicationNotification;
APPKIT_EXTERN NSNotificationName NSWorkspaceDidActivateApplicationNotification API_AVAILABLE(macos(10.6));

API_AVAILABLE(macos(10.6))
@interface NSRunningApplication : NSObject
@property(class, readonly) NSRunningApplication* currentApplication;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
@property(readonly, getter=isTerminated) BOOL terminated;
@property(readonly, getter=isFinishedLaunching) BOOL finishedLaunching;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSURL* bundleURL;
@property(readonly) pid_t processIdentifier;
@property(nullable, readonly, copy) NSDate* launchDate;
- (BOOL)terminate;
@end

API_AVAILABLE(macos(10.15))
@interface NSWorkspaceOpenConfiguration : NSObject <NSCopying>
+ (instancetype)configuration;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications API_AVAILABLE(macos(10.6));
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication API_AVAILABLE(macos(10.7));
- (NSImage*)iconForFile:(NSString*)fullPath;
- (BOOL)openURL:(NSURL*)url;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(nullable void (^)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler
    API_AVAILABLE(macos(10.15));
- (void)openURLs:(NSArray<NSURL*>*)urls
    withApplicationAtURL:(NSURL*)applicationURL
           configuration:(NSWorkspaceOpenConfiguration*)configuration
       completionHandler:
           (nullable void (^)(NSRunningApplication* _Nullable app, NSError* _Nullable error))completionHandler
    API_AVAILABLE(macos(10.15));
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs API_AVAILABLE(macos(10.6));
@end

@interface NSColor : NSObject <NSCopying>
@property(class, readonly, strong) NSColor* clearColor;
@property(class, readonly, strong) NSColor* blackColor;
- (void)setFill;
@end

APPKIT_EXTERN void NSRectFill(NSRect rect);

typedef NS_ENUM(NSUInteger, NSCompositingOperation) {
    NSCompositingOperationSourceOver = 2,
};

typedef NS_ENUM(NSUInteger, NSImageInterpolation) {
    NSImageInterpolationHigh = 3,
};

@interface NSGraphicsContext : NSObject
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)graphicsPort
                                           flipped:(BOOL)initialFlippedState API_AVAILABLE(macos(10.10));
@property(class, strong, nullable) NSGraphicsContext* currentContext;
@property NSImageInterpolation imageInterpolation;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

@interface NSImage : NSObject <NSCopying>
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)symbolName
                          accessibilityDescription:(nullable NSString*)description API_AVAILABLE(macos(11.0));
+ (NSImage*)imageWithSize:(NSSize)size
                  flipped:(BOOL)drawingHandlerShouldBeCalledWithFlippedContext
           drawingHandler:(BOOL (^)(NSRect dstRect))drawingHandler API_AVAILABLE(macos(10.8));
- (instancetype)initWithCGImage:(CGImageRef)cgImage size:(NSSize)size API_AVAILABLE(macos(10.6));
@property(copy, nullable) NSString* accessibilityDescription API_AVAILABLE(macos(10.6));
- (void)drawInRect:(NSRect)rect
          fromRect:(NSRect)fromRect
         operation:(NSCompositingOperation)op
          fraction:(CGFloat)delta;
@end

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
    NSViewWidthSizable = 2,
    NSViewHeightSizable = 16,
};

typedef NS_ENUM(NSInteger, NSWindowOrderingMode) {
    NSWindowAbove = 1,
    NSWindowBelow = -1,
    NSWindowOut = 0,
};

@interface NSView : NSObject
- (instancetype)initWithFrame:(NSRect)frameRect;
@property NSRect frame;
@property(nullable, readonly, assign) NSWindow* window;
@property(nullable, readonly, assign) NSView* superview;
@property(getter=isHidden) BOOL hidden;
@property NSAutoresizingMaskOptions autoresizingMask;
- (void)addSubview:(NSView*)view
        positioned:(NSWindowOrderingMode)place
        relativeTo:(nullable NSView*)otherView;
- (void)removeFromSuperview;
@end

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) {
    NSVisualEffectMaterialPopover API_AVAILABLE(macos(10.11)) = 6,
};

typedef NS_ENUM(NSInteger, NSVisualEffectBlendingMode) {
    NSVisualEffectBlendingModeBehindWindow,
    NSVisualEffectBlendingModeWithinWindow,
};

typedef NS_ENUM(NSInteger, NSVisualEffectState) {
    NSVisualEffectStateFollowsWindowActiveState,
    NSVisualEffectStateActive,
    NSVisualEffectStateInactive,
};

API_AVAILABLE(macos(10.10))
@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@property NSVisualEffectState state;
@property(nullable, strong) NSImage* maskImage;
@end

typedef NSInteger NSWindowLevel;

// The SDK takes this number from CoreGraphics.
static const NSWindowLevel NSFloatingWindowLevel = 3;

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskNonactivatingPanel = 1 << 7,
};

typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorStationary API_AVAILABLE(macos(10.6)) = 1 << 4,
    NSWindowCollectionBehaviorIgnoresCycle API_AVAILABLE(macos(10.6)) = 1 << 6,
};

typedef NS_ENUM(NSUInteger, NSBackingStoreType) {
    NSBackingStoreBuffered = 2,
};

@interface NSWindow : NSObject
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag
                             screen:(nullable NSScreen*)screen;
@property NSWindowStyleMask styleMask;
@property(nullable, strong) __kindof NSView* contentView;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior API_AVAILABLE(macos(10.5));
@property(null_resettable, copy) NSColor* backgroundColor;
@property(getter=isOpaque) BOOL opaque;
@property BOOL hasShadow;
@property BOOL hidesOnDeactivate;
@property(getter=isMovable) BOOL movable API_AVAILABLE(macos(10.6));
@property BOOL ignoresMouseEvents;
@property BOOL acceptsMouseMovedEvents;
- (void)orderFrontRegardless;
@end

@interface NSPanel : NSWindow
@property(getter=isFloatingPanel) BOOL floatingPanel;
@end

typedef NSInteger NSControlStateValue;

static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;

@interface NSMenuItem : NSObject <NSCopying>
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)string
                       action:(nullable SEL)selector
                keyEquivalent:(NSString*)charCode NS_DESIGNATED_INITIALIZER;
@property(getter=isEnabled) BOOL enabled;
@property NSControlStateValue state;
@property(nullable, strong) NSMenu* submenu;
@property(nullable, weak) id target;
@property(nullable) SEL action;
@end

@protocol NSMenuDelegate <NSObject>
@optional
- (void)menuNeedsUpdate:(NSMenu*)menu;
@end

@interface NSMenu : NSObject <NSCopying>
- (instancetype)initWithTitle:(NSString*)title NS_DESIGNATED_INITIALIZER;
@property BOOL autoenablesItems;
@property(nullable, weak) id<NSMenuDelegate> delegate;
- (void)addItem:(NSMenuItem*)newItem;
- (void)removeAllItems API_AVAILABLE(macos(10.6));
- (BOOL)popUpMenuPositioningItem:(nullable NSMenuItem*)item
                      atLocation:(NSPoint)location
                          inView:(nullable NSView*)view API_AVAILABLE(macos(10.6));
- (void)cancelTrackingWithoutAnimation API_AVAILABLE(macos(10.6));
@end

static const CGFloat NSSquareStatusItemLength = -2.0;

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

@interface NSStatusBarButton : NSView
@property(nullable, strong) NSImage* image;
@end

@interface NSStatusItem : NSObject
@property(nullable, readonly, strong) NSStatusBarButton* button API_AVAILABLE(macos(10.10));
@property(nullable, strong) NSMenu* menu;
@property(getter=isVisible) BOOL visible API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
