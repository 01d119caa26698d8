// The socket: one line in, one line of JSON out, any number of clients.
//
// It is served in the modes of modal panels and of mouse tracking as well,
// because tests look at menus while the host tracks the mouse in them.
#import "Probe.h"

#include <cstring>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

NSArray* servedModes() {
    return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
}

void* asEvent(int number) {
    return reinterpret_cast<void*>(static_cast<intptr_t>(number));
}

// A client that stops reading must not stop the host for longer than this.
void limitSending(int connection) {
    struct timeval limit = {2, 0};
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

NSUInteger lengthOfFirstLine(NSData* data) {
    const std::string_view text(static_cast<const char*>([data bytes]), [data length]);
    const size_t end = text.find('\n');
    return end == text.npos ? NSNotFound : end;
}

bool sendAll(int connection, NSData* data) {
    const char* bytes = static_cast<const char*>([data bytes]);
    for (size_t left = [data length]; left > 0;) {
        ssize_t sent = send(connection, bytes, left, MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes += sent;
        left -= static_cast<size_t>(sent);
    }
    return true;
}

} // namespace

@implementation VTRProbeServer

- (id)initWithAnswerer:(id<VTRProbeAnswering>)object {
    if (!(self = [super init]))
        return nil;
    answerer = object; // owns this server, so it is not retained
    pending = [NSMutableDictionary new];
    listener = -1;
    return self;
}

- (void)dealloc {
    [pending release];
    [super dealloc];
}

- (void)watch:(int)number {
    for (NSString* mode in servedModes())
        [[NSRunLoop mainRunLoop] addEvent:asEvent(number) type:ET_RDESC watcher:self forMode:mode];
}

- (void)unwatch:(int)number {
    for (NSString* mode in servedModes())
        [[NSRunLoop mainRunLoop] removeEvent:asEvent(number) type:ET_RDESC forMode:mode all:YES];
}

- (BOOL)listenAt:(NSString*)path {
    struct sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const char* name = [path fileSystemRepresentation];
    if (std::strlen(name) >= sizeof address.sun_path)
        return NO;
    std::strcpy(address.sun_path, name);
    listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listener < 0)
        return NO;
    if (bind(listener, reinterpret_cast<struct sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 8) != 0) {
        close(listener);
        return NO;
    }
    [self watch:listener];
    return YES;
}

- (void)acceptClient {
    int connection = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0)
        return;
    limitSending(connection);
    [pending setObject:[NSMutableData data] forKey:@(connection)];
    [self watch:connection];
}

- (void)dropClient:(int)connection {
    [self unwatch:connection];
    [pending removeObjectForKey:@(connection)];
    close(connection);
}

// Whatever goes wrong becomes part of the answer: a test wants to read it, and
// the host must not hear of it.
- (NSData*)reply:(NSData*)line {
    @try {
        NSString* request = [[[NSString alloc] initWithData:line
                                                   encoding:NSUTF8StringEncoding] autorelease];
        NSMutableData* data =
            [[[NSJSONSerialization dataWithJSONObject:[answerer answerTo:request ? request : @""]
                                              options:0
                                                error:NULL] mutableCopy] autorelease];
        [data appendBytes:"\n" length:1];
        return data;
    } @catch (id problem) {
        NSLog(@"probe: %@", problem);
        return [NSData dataWithBytes:"{\"error\":\"exception\"}\n" length:22];
    }
}

- (void)serveLinesOf:(int)connection {
    NSMutableData* buffer = [[[pending objectForKey:@(connection)] retain] autorelease];
    for (;;) {
        const NSUInteger length = lengthOfFirstLine(buffer);
        if (length == NSNotFound)
            return;
        NSData* line = [buffer subdataWithRange:NSMakeRange(0, length)];
        [buffer replaceBytesInRange:NSMakeRange(0, length + 1) withBytes:NULL length:0];
        if (!sendAll(connection, [self reply:line]))
            return [self dropClient:connection];
    }
}

- (void)readFrom:(int)connection {
    char chunk[4096];
    ssize_t count = recv(connection, chunk, sizeof chunk, MSG_DONTWAIT);
    if (count <= 0)
        return [self dropClient:connection];
    [[pending objectForKey:@(connection)] appendBytes:chunk length:static_cast<NSUInteger>(count)];
    [self serveLinesOf:connection];
}

- (void)receivedEvent:(void*)data
                 type:(RunLoopEventType)type
                extra:(void*)extra
              forMode:(NSString*)mode {
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    int number = static_cast<int>(reinterpret_cast<intptr_t>(data));
    if (number == listener)
        [self acceptClient];
    else
        [self readFrom:number];
    [pool release];
}

@end
