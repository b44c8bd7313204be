#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// A card as the sound system lists it: the driver's kind and the card's name.
struct ListedCard {
  int number = 0;
  std::string driver;
  std::string name;
};

/// Reads /proc/asound/cards. Lines that are no card's are left out.
std::vector<ListedCard> ParseCards(std::string_view text);

/// A stream of a card: "plughw:0,1" plays or records it.
struct Stream {
  int card = 0;
  int device = 0;
  std::string name;
  bool plays = false;
  bool records = false;
};

/// Reads /proc/asound/pcm.
std::vector<Stream> ParseStreams(std::string_view text);

/// A built-in card. Those that are plugged in, and those that no hardware stands behind, are none.
struct SoundCard {
  int number = 0;
  std::filesystem::path device;  // links resolved; empty where the kernel names none
  std::string name;
  std::string maker;
};

std::vector<SoundCard> ListSoundCards();

}  // namespace machine
