unit Declarations;

{ Every kind of declaration and type. }

interface

uses
  Windows, SysUtils, Classes;

const
  Answer = 42;
  Half = 0.5;
  Letter = 'A';
  Line = 'Total'#13#10'of'^M^J'lines';
  Mask = (1 shl 4) or $0F and not $03;
  Name: string = 'none';
  Origin: TPoint = (X: 0; Y: 0;);
  Boxes: array[0..1] of TRect = ((Left: 0; Top: 0; Right: 1; Bottom: 1),
    (Left: 1; Top: 1; Right: 2; Bottom: 2));
  Squares: array[1..3] of Integer = (1, 2 * 2, (1 + 2) * 3);
  Vowels = ['a', 'e', 'i', 'o', 'u', 'A'..'Z'];
  Old = 1 platform;
  Handler: procedure(Sender: TObject) of object = nil;
  Entry: Pointer = @Answer;

resourcestring
  SHello = 'Hello';
  SBoth = SHello + ', world';

type
  TColor = (clRed, clGreen, clBlue);
  TIndex = 1..10;
  TLetter = 'a'..'z';
  TControl = ^A..^Z;
  TSigned = -Answer..Answer;
  TName = string[20];
  TText = type string;
  TColors = set of TColor;
  TDigits = set of '0'..'9';
  TKinds = set of (kdOne, kdTwo);
  PNode = ^TNode;
  TNode = packed record
    Next, Previous: PNode;
    Value: Variant;
    Children: array of PNode;
    case Kind: TColor of
      clRed: (Red: Byte);
      clGreen, clBlue: (
        Pair: record
          Low, High: Word;
        end;
        case Boolean of
          False: (Number: Double);
          True: (Bytes: array[0..7] of Byte););
      TColor(9): ();
  end;
  TFile = file of TNode;
  TRaw = file;
  TTable = array[TColor, 1..2, (rwFirst, rwLast)] of array[Boolean] of Char;
  TCompare = function(const A, B): Integer;
  TNotify = procedure(Sender: TObject) of object;
  TCallback = function(Window: HWND; Data: Longint): BOOL; stdcall;
  TOldHook = procedure; far; cdecl;
  TSystemInt = System.Integer;
  TInfo = record
    Register: Integer;
    Call: procedure; stdcall;
    Pascal, Cdecl: Boolean;
  end platform;

var
  First, Second: Integer;
  Total: Integer = 0;
  Overlay: Longint absolute Total;
  Screen: array[0..24] of Word absolute $B800;
  Sorter: TCompare = nil;
  Legacy: Integer library;

threadvar
  Current: PNode;

function Add(A, B: Integer): Integer;
function Sum(const Values: array of Integer; Start: Integer = 0): Integer; overload;
function Text(const Format: string; const Args: array of const): string;
procedure Split(const Source; var Left, Right: string; out Count: Integer);
procedure Later; far; forward;
procedure Soon; forward;
procedure Quick(); register;
function Beep(Kind: Longint): LongBool; stdcall; external 'user32.dll' name 'MessageBeep';
procedure Nameless; external 'a.dll' index 7;
procedure Linked; cdecl; external;
procedure Fast; assembler; forward;
function Reader(out: Integer; const Name: System.Str = 'x' + 'y'): file;

implementation

uses Forms;

label
  Again, 99;

const
  Factor = 2;

resourcestring
  SInside = 'Inside';

type
  TInner = class;

threadvar
  Depth: Integer;

var
  Flag: Boolean;

function Add;
begin
  Result := A + B
end;

function Sum(const Values: array of Integer; Start: Integer): Integer;
var
  I: Integer;

  procedure Step(By: Integer);
    function Twice: Integer;
    begin
      Twice := By * 2
    end;
  begin
    Inc(Result, Twice)
  end;

begin
  Result := Start;
  for I := Low(Values) to High(Values) do
    Step(Values[I])
end;

function Text(const Format: string; const Args: array of const): string;
begin
end;

procedure Split(const Source; var Left, Right: string; out Count: Integer); register;
begin
end;

procedure Later; forward;

procedure Later;
begin
end;

procedure Quick; assembler;
asm
        MOV     EAX, [EBX+4]
@@1:    JMP     @@1
        DB      'x', 0
@end:   NOP
end;

procedure Fast; assembler;
const
  Step = 3;
asm
        NOP
end;

procedure Direct;
asm
        RET
end;

procedure Hidden; external 'b.dll' name 'Hidden';

function Reader;
begin
end;

initialization
  Total := 1;
finalization
  Total := 0;
end.
