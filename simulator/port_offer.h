// Offers a device to the program as COM<n>: a link in the folder where the program looks for its
// numbering of ports.
#pragma once

#include <string>

namespace varno {

class PortOffer {
  public:
    // 0 takes the first number that is no port yet.
    PortOffer(std::string folder, int wantedNumber)
        : folder_(std::move(folder)), number_(wantedNumber) {}
    ~PortOffer() { Withdraw(); }
    PortOffer(const PortOffer&) = delete;
    PortOffer& operator=(const PortOffer&) = delete;

    // Throws std::runtime_error with a sentence for the operator. The number once got is kept.
    void Offer(const std::string& device);
    void Withdraw();  // removes the link, unless somebody else has changed it

    int Number() const { return number_; }

  private:
    void RemoveLeftBehind(const std::string& device) const;
    int FreeNumber() const;

    std::string folder_;
    int number_;
    std::string offered_;  // the device; empty while none is offered
};

}  // namespace varno
