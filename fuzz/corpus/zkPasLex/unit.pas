{ A sample in which every token of the language occurs. It is no program. }
// A comment to the end of the line.
(* A comment that goes on
   over the end of a line. *)

{$Q+} {$DEFINE Sample} {$IFDEF Sample} {$ELSE} {$ENDIF} {$IFNDEF Sample} {$IFOPT R+}
{$I Sample.inc} {$R Sample.res} {$UNDEF Sample}

{ Reserved words }
  and array as asm begin case class const constructor destructor dispinterface div do
  downto else end except exports file finalization finally for function goto if
  implementation in inherited initialization inline interface is label library mod nil not
  object of or packed procedure program property raise record repeat resourcestring set shl
  shr string then threadvar to try type unit until uses var while with xor

{ Directives and predefined types }
  Absolute Abstract AnsiString Assembler At Automated Boolean Byte ByteBool Cardinal Cdecl
  Char Comp Contains Currency Default Dispid Double DWORD Dynamic Export Extended External
  Far Forward Implements Index Int64 Integer LongBool Longint Longword Message Name Near
  Nodefault OleVariant On Out Overload Override Package Pascal PChar Private Protected
  Public Published Read Readonly Real Real48 Register Reintroduce Requires Resident
  Safecall Shortint ShortString Single Smallint Stdcall Stored Stringresource Variant
  Virtual WideChar WideString Word WordBool Write Writeonly

{ Symbols }
  x := @y @@z ( a ) [ b ] (. c .) p^ q.r 1..2
  + - * / = <> < <= > >= : , ; & ! " % ? \ ` ~

{ Literals }
  name 'c' 'a string' #13 #$0D 12 $FF 1.5E3

{ What does not belong there }
  | }
