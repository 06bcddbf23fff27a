#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "holidays/HttpClient.h"

namespace noonward::test {

/// A network without wires: it keeps what it is asked, and answers when told to.
class FakeHttp final : public HttpClient {
 public:
    using Done = std::function<void(std::optional<HttpResponse>)>;

    void get(const std::string& url, Done done) override {
        asked.push_back(url);
        waiting.push_back(std::move(done));
    }

    /// Answers the oldest request that waits; with nothing: no response came.
    void answer(std::optional<HttpResponse> response) {
        const Done done = std::move(waiting.front());
        waiting.erase(waiting.begin());
        done(std::move(response));
    }

    std::vector<std::string> asked;  ///< every address so far
    std::vector<Done> waiting;
};

}  // namespace noonward::test
