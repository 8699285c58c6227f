// Written against the documented interfaces of Foundation; neither built nor tried so far.

#include "AmbrelRecoveryAppSupport/UbiquitousCloudItems.h"

#include <system_error>

#import <Foundation/Foundation.h>

namespace {

/// A new URL at every call: NSURL caches the resource values that it has read.
NSURL* fileURL(const std::filesystem::path& item) {
    return [NSURL fileURLWithFileSystemRepresentation:item.c_str() isDirectory:YES relativeToURL:nil];
}

[[noreturn]] void throwSystemError(NSError* error) {
    NSError* const underlying = error.userInfo[NSUnderlyingErrorKey];
    const bool isPosix = [underlying.domain isEqualToString:NSPOSIXErrorDomain];
    throw std::system_error(isPosix ? static_cast<int>(underlying.code) : EIO, std::generic_category());
}

bool isDownloaded(NSString* status) {
    return [status isEqualToString:NSURLUbiquitousItemDownloadingStatusCurrent] ||
           [status isEqualToString:NSURLUbiquitousItemDownloadingStatusDownloaded];
}

} // namespace

CloudItems::Properties UbiquitousCloudItems::properties(const std::filesystem::path& item) {
    @autoreleasepool {
        NSError* error = nil;
        NSDictionary<NSURLResourceKey, id>* const values = [fileURL(item) resourceValuesForKeys:@[
            NSURLIsUbiquitousItemKey, NSURLUbiquitousItemDownloadingStatusKey, NSURLUbiquitousItemDownloadingErrorKey
        ]
                                                                                          error:&error];
        if (values == nil) {
            throwSystemError(error);
        }
        // Properties that are absent count as no, as every message to nil does.
        return {
            .isUbiquitous = static_cast<bool>([values[NSURLIsUbiquitousItemKey] boolValue]),
            .isDownloaded = isDownloaded(values[NSURLUbiquitousItemDownloadingStatusKey]),
            .hasDownloadingError = values[NSURLUbiquitousItemDownloadingErrorKey] != nil,
        };
    }
}

void UbiquitousCloudItems::startDownloading(const std::filesystem::path& item) {
    @autoreleasepool {
        NSError* error = nil;
        if (![NSFileManager.defaultManager startDownloadingUbiquitousItemAtURL:fileURL(item) error:&error]) {
            throwSystemError(error);
        }
    }
}

std::optional<double> UbiquitousCloudItems::percentDownloaded(const std::filesystem::path& item) {
    @autoreleasepool {
        NSMetadataItem* const metadata = [[NSMetadataItem alloc] initWithURL:fileURL(item)];
        const id percent = [metadata valueForAttribute:NSMetadataUbiquitousItemPercentDownloadedKey];
        if (![percent isKindOfClass:NSNumber.class]) {
            return std::nullopt;
        }
        return [percent doubleValue];
    }
}
