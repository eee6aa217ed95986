unit Jumble; interface uses b_unit, B2, Bunit, a; type zebra = Byte; Zebra_Crossing = Word;
  ZebraAlias = zebra; ZEBRA2 = zebra; _private = Integer; Zoo = record end; implementation uses
  A, C; type alpha = Byte; procedure zulu; begin end; procedure Zulu2; begin end; procedure ZULU_A; begin end;
procedure _first; begin end; procedure Yankee; begin end; procedure ZULU; begin end; procedure
  zulua
  ;
begin
end; function
{ a comment
  over two lines } TThing
  .
  Spread
  : Integer;
begin end; procedure TThing.Alone; begin end; procedure TTHING.alone; begin end; end.
