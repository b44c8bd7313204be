// The battery of the laptop: 50 Wh new, 45 Wh by now, made for 11.4 V. What is written to the scratch
// memory of QEMU's test device takes the place of what it says of itself, until 0 is written.
DefinitionBlock ("", "SSDT", 2, "SAMPLE", "POWER", 1)
{
  Device (\_SB.BAT0)
  {
    Name (_HID, EisaId ("PNP0C0A"))
    OperationRegion (TOLD, SystemMemory, 0xFF000000, 0x10)
    Field (TOLD, DWordAcc, NoLock, Preserve)
    {
      VOLT, 32,
      FULL, 32,
      GONE, 32,
    }
    Method (_STA) { If (GONE) { Return (0x0F) } Return (0x1F) }
    Method (_BIF)
    {
      Local0 = Package () {
        0, 50000, 45000, 1, 11400, 2000, 500, 100, 100, "B50", "7", "LION", "Sample" }
      If (FULL) { Local0[2] = FULL }
      Return (Local0)
    }
    Method (_BST)
    {
      Local0 = Package () { 1, 9000, 30000, 12000 }
      If (VOLT) { Local0[3] = VOLT }
      Return (Local0)
    }
  }
}
