#import "platform/macos/MacMemorySource.h"

#include "core/MemoryReader.h"
#import "platform/macos/MacText.h"

#import <Foundation/Foundation.h>
#include <pthread.h>

namespace quillary {

namespace {

// Absent for a program that is not a bundle, as in a build folder.
std::optional<std::string> ownBundle() {
    std::string path = MacText::plain([[NSBundle mainBundle] bundlePath]);
    return path.ends_with(".app") ? std::optional(std::move(path)) : std::nullopt;
}

} // namespace

MacMemorySource::MacMemorySource() : m_source(ownBundle()) {}

MemorySource::Sampler MacMemorySource::sampler() {
    return [copy = m_source] {
        if (pthread_main_np() == 0) {
            // Below the priority of work that the user waits for.
            pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
        }
        MemorySample sample;
        sample.stats = MemoryReader::read();
        sample.applications = copy.sample();
        for (auto& application : sample.applications) {
            application.id = MacText::wellFormed(application.id);
            application.name = MacText::wellFormed(application.name);
        }
        return sample;
    };
}

} // namespace quillary
