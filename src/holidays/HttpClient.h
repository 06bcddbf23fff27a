#pragma once

#include <functional>
#include <optional>
#include <string>

namespace noonward {

struct HttpResponse {
    int status = 0;  ///< HTTP status code, 200 for success
    std::string body;
};

/// Fetches documents over HTTPS.
class HttpClient {
 public:
    virtual ~HttpClient() = default;

    /// Starts a GET request and returns at once. `done` is called once on the main thread, with
    /// nothing when no response came. It may be called late, even after the caller is gone.
    virtual void get(const std::string& url,
                     std::function<void(std::optional<HttpResponse>)> done) = 0;
};

}  // namespace noonward
