#include "platform/linux/sound/mci.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/sound/sound_devices.h"
#include "platform/linux/sound/tray.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

constexpr std::string_view cdDevice = "cdaudio";

/// The types of device that a file can be opened as. All play what the media library plays.
constexpr std::array<std::string_view, 3> soundTypes{"waveaudio", "mpegvideo", "mpegaudio"};

bool isSoundType(const std::optional<std::string>& type) {
    return !type || std::ranges::count(soundTypes, mciName(*type)) > 0;
}

bool hasExtension(std::string_view file) {
    const auto dot = file.rfind('.');
    return dot != std::string_view::npos && file.find_first_of("\\/", dot) == std::string_view::npos;
}

}  // namespace

/// Without any device the media library plays into nothing, and for nobody.
std::unique_ptr<Player> openPlayer(const std::string& file, AtEnd atEnd, I4& code) {
    const auto path = foundHostPath(fromAnsi1252(file));
    code = factsOfTarget(path) ? mci::noDriver : mci::fileMissing;
    if (code == mci::fileMissing || soundDevices() == 0) return {};
    return Player::open(path, atEnd, code);
}

I4 Mci::send(std::string_view text) {
    MciCommand command;
    if (const I4 code = readMciCommand(text, command)) return code;
    if (command.verb == MciVerb::Set)
        return mciName(command.device) == cdDevice ? moveTray(command.opensDoor) : mci::noSuchDevice;
    dropEnded();
    if (command.verb == MciVerb::Open) return open(command);
    return command.verb == MciVerb::Play ? play(command) : stop(command);
}

I4 Mci::open(const MciCommand& command) {
    if (!isSoundType(command.type)) return mci::noSuchDevice;
    const auto name = mciName(command.alias.value_or(command.device));
    {
        const std::lock_guard guard(mutex_);
        if (devices_.contains(name)) return mci::aliasInUse;
    }
    I4 code = mci::success;
    auto player = opener_(command.device, AtEnd::StaysOpen, code);
    if (!player) return code;
    const std::lock_guard guard(mutex_);
    // Of two that open the same name at once, the first that is ready has it.
    return devices_.try_emplace(name, std::move(player)).second ? mci::success : mci::aliasInUse;
}

I4 Mci::play(const MciCommand& command) {
    {
        const std::lock_guard guard(mutex_);
        if (const auto device = devices_.find(mciName(command.device)); device != devices_.end()) {
            device->second->play();
            return mci::success;
        }
    }
    return playFile(command);
}

/// What isn't open is a file, which is opened for this once.
I4 Mci::playFile(const MciCommand& command) {
    if (!hasExtension(command.device)) return mci::unknownExtension;
    I4 code = mci::success;
    auto player = opener_(command.device, AtEnd::Closes, code);
    if (!player) return code;
    player->play();
    const std::lock_guard guard(mutex_);
    unnamed_.push_back(std::move(player));
    return mci::success;
}

I4 Mci::stop(const MciCommand& command) {
    Devices::node_type closed;  // ends behind the lock
    const std::lock_guard guard(mutex_);
    const auto device = devices_.find(mciName(command.device));
    if (device == devices_.end()) return mci::noSuchDevice;
    device->second->stop();
    if (command.verb == MciVerb::Close) closed = devices_.extract(device);
    return mci::success;
}

void Mci::dropEnded() {
    std::vector<std::unique_ptr<Player>> ended;  // end behind the lock
    const std::lock_guard guard(mutex_);
    const auto firstEnded = std::partition(unnamed_.begin(), unnamed_.end(),
                                           [](const auto& player) { return player->isPlaying(); });
    std::move(firstEnded, unnamed_.end(), std::back_inserter(ended));
    unnamed_.erase(firstEnded, unnamed_.end());
}

bool Mci::isPlaying() {
    const std::lock_guard guard(mutex_);
    const auto plays = [](const auto& player) { return player->isPlaying(); };
    return std::ranges::any_of(unnamed_, plays) ||
           std::ranges::any_of(devices_, [&](const auto& device) { return plays(device.second); });
}

}  // namespace tovera
