#pragma once

// What the backend calls of the unified log, as Apple documents it.
#include <os/object.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

OS_OBJECT_DECL(os_log);

typedef enum : uint8_t {
    OS_LOG_TYPE_DEFAULT = 0x00,
    OS_LOG_TYPE_INFO = 0x01,
    OS_LOG_TYPE_DEBUG = 0x02,
    OS_LOG_TYPE_ERROR = 0x10,
    OS_LOG_TYPE_FAULT = 0x11,
} os_log_type_t;

os_log_t _Nonnull os_log_create(const char* _Nonnull subsystem, const char* _Nonnull category)
    __attribute__((availability(macos, introduced = 10.12)));

// The SDK's macro packs its arguments for the log; this function stands for that and checks them alike.
void quillary_check_os_log(os_log_t _Nonnull log, os_log_type_t type, const char* _Nonnull format, ...)
    __attribute__((format(os_log, 3, 4)));
#define os_log_with_type(log, type, ...) quillary_check_os_log(log, type, __VA_ARGS__)

#ifdef __cplusplus
}
#endif
