unit Assembled;

interface

function SwapBytes(Value: Word): Word; register;
procedure FillWords(var Dest; Count: Integer; Value: Word); assembler;
function MessageBeep(Kind: Cardinal): LongBool; stdcall;
procedure Later;

implementation

const
  user32 = 'user32.dll';

procedure Helper; forward;

function MessageBeep(Kind: Cardinal): LongBool; stdcall; external user32 name 'MessageBeep';
procedure ByNumber; external 'numbers.dll' index 7;
function FromObject(A: Integer): Integer; cdecl; external;

function SwapBytes(Value: Word): Word;
asm
        XCHG    AL, AH          { end; }
@@1:    JMP     @@2
@@2:
end;

procedure FillWords(var Dest; Count: Integer; Value: Word); assembler;
asm
        PUSH    EDI
        MOV     EDI, EAX
        REP     STOSW
        POP     EDI
end;

procedure Later;
var
  Local: Integer;
begin
  Helper;
  asm
        MOV     Local, 1
  end;
  if Local = 1 then
    Helper;
end;

procedure Helper;
label
  Again, 10;
begin
Again:
  if ByNumberIsReady then
    goto 10;
  goto Again;
10:
end;

end.
