#pragma once

// What the backend calls of Foundation, as Apple documents it.
#import <AvailabilityMacros.h>
#import <CoreFoundation/CoreFoundation.h>
#import <CoreGraphics/CoreGraphics.h>
#import <objc/NSObjCRuntime.h>
#import <objc/NSObject.h>
#import <os/availability.h>

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_ENUM(type, name) CF_ENUM(type, name)
#define NS_OPTIONS(type, name) CF_OPTIONS(type, name)
#define FOUNDATION_EXPORT extern "C"

NS_ASSUME_NONNULL_BEGIN

@class NSArray<ObjectType>, NSDate, NSError, NSOperationQueue, NSString, NSURL;

typedef double NSTimeInterval;
typedef NSString* NSNotificationName;
typedef NSString* NSErrorDomain;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;

typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)len;
@end

@protocol NSCopying
- (id)copyWithZone:(nullable struct _NSZone*)zone;
@end

FOUNDATION_EXPORT const NSRect NSZeroRect;

static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
    NSPoint p;
    p.x = x;
    p.y = y;
    return p;
}

static inline NSSize NSMakeSize(CGFloat w, CGFloat h) {
    NSSize s;
    s.width = w;
    s.height = h;
    return s;
}

static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat w, CGFloat h) {
    NSRect r;
    r.origin.x = x;
    r.origin.y = y;
    r.size.width = w;
    r.size.height = h;
    return r;
}

@interface NSString : NSObject <NSCopying>
@end

// The compiler makes literals of this class; its layout is fixed by the ABI.
@interface NSSimpleCString : NSString {
@package
    char* bytes;
    int numBytes;
    unsigned int _unused;
}
@end

@interface NSConstantString : NSSimpleCString
@end

FOUNDATION_EXPORT NSString* NSHomeDirectory(void);

@interface NSNumber : NSObject
@property(readonly) double doubleValue;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
@property(readonly) NSUInteger count;
@property(nullable, nonatomic, readonly) ObjectType firstObject API_AVAILABLE(macos(10.6));
- (BOOL)containsObject:(ObjectType)anObject;
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects count:(NSUInteger)cnt;
@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
+ (instancetype)arrayWithCapacity:(NSUInteger)numItems;
- (void)addObject:(ObjectType)anObject;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
- (nullable ObjectType)objectForKey:(KeyType)aKey;
@end

@interface NSError : NSObject
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSDate : NSObject
@property(readonly) NSTimeInterval timeIntervalSinceReferenceDate;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
@property(nullable, readonly, copy) NSString* path;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSString* bundlePath;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSDictionary<NSString*, id>* infoDictionary;
@end

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) {
    NSApplicationSupportDirectory = 14,
};

typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) {
    NSUserDomainMask = 1,
};

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSArray<NSURL*>*)URLsForDirectory:(NSSearchPathDirectory)directory
                           inDomains:(NSSearchPathDomainMask)domainMask API_AVAILABLE(macos(10.6));
- (BOOL)fileExistsAtPath:(NSString*)path;
- (NSString*)displayNameAtPath:(NSString*)path;
@end

@interface NSOperationQueue : NSObject
@property(class, readonly, strong) NSOperationQueue* mainQueue API_AVAILABLE(macos(10.6));
@end

@interface NSNotification : NSObject <NSCopying>
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)obj
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block API_AVAILABLE(macos(10.6));
- (void)removeObserver:(id)observer;
@end

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)postNotificationName:(NSNotificationName)name
                      object:(nullable NSString*)object
                    userInfo:(nullable NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately;
@end

typedef uint32_t AEEventClass;
typedef uint32_t AEEventID;

enum {
    kCoreEventClass = 'aevt',
    kAEReopenApplication = 'rapp',
};

@interface NSAppleEventDescriptor : NSObject <NSCopying>
@end

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end

NS_ASSUME_NONNULL_END
