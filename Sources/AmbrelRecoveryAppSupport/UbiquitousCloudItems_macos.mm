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

std::optional<CloudItems::DownloadingStatus> downloadingStatus(NSString* status) {
    if ([status isEqualToString:NSURLUbiquitousItemDownloadingStatusCurrent]) {
        return CloudItems::DownloadingStatus::current;
    }
    if ([status isEqualToString:NSURLUbiquitousItemDownloadingStatusDownloaded]) {
        return CloudItems::DownloadingStatus::downloaded;
    }
    if ([status isEqualToString:NSURLUbiquitousItemDownloadingStatusNotDownloaded]) {
        return CloudItems::DownloadingStatus::notDownloaded;
    }
    return std::nullopt;
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
        NSNumber* const isUbiquitous = values[NSURLIsUbiquitousItemKey];
        return {
            .isUbiquitous = isUbiquitous == nil ? std::nullopt : std::optional<bool>(isUbiquitous.boolValue),
            .downloadingStatus = downloadingStatus(values[NSURLUbiquitousItemDownloadingStatusKey]),
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
