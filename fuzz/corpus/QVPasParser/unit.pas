unit Sample;
{$IFDEF A} {$R+} {$ELSE} nothing {$ENDIF}
interface
uses Classes, SysUtils;
const
  Max: Integer = 1 + 2 * (3 shl 1);
  Names: array[0..1] of string = ('a', #13'b');
  Point: TPoint = (X: 1; Y: 2);
resourcestring
  Hello = 'hello';
type
  TKind = (One, Two, Three);
  TKinds = set of TKind;
  TRange = 1..9;
  PNode = ^TNode;
  TNode = packed record
    Next: PNode;
    case Kind: Byte of
      0: (A, B: Integer);
      1: (C: string[20];);
  end;
  TEvent = procedure(Sender: TObject; var Done: Boolean) of object;
  TMeta = class of TBase;
  TBase = class(TObject, IUnknown)
  private
    FValue: Integer;
    function GetItem(Index: Integer): string;
  protected
    procedure Tell; virtual; abstract;
  public
    constructor Create(AOwner: TComponent = nil); override;
    destructor Destroy; override;
    class function Make: TBase; stdcall;
    procedure WMPaint(var Message: TMessage); message WM_PAINT;
    property Items[Index: Integer]: string read GetItem; default;
  published
    property Value: Integer read FValue write FValue stored False default 7 nodefault;
  end;
  IThing = interface(IUnknown)
    ['{00000000-0000-0000-C000-000000000046}']
    procedure Act; safecall;
    property Name: string read GetName;
  end;
  IDisp = dispinterface
    procedure Go; dispid 1;
  end;
var
  Value: Integer absolute Other;
threadvar
  Count: Integer;
procedure Out(out A; const B: array of const; var C: array of Byte); overload; deprecated;
function Far(a: Integer): Integer; external 'lib' name 'far';
implementation
uses Other;
constructor TBase.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
end;
procedure TBase.Tell;
  function Inner(x: Integer): Integer;
  label 1;
  var y: Integer;
  begin
    1: goto 1;
    Result := x
  end;
begin
  if not (a in [1..3, 5]) and (b <= c) then x := y else begin z^.q[1] := @f; end;
  for i := 0 to 9 do while True do repeat Inc(i) until i >= 3;
  case x of
    1, 2..3: y;
    'a': begin end;
  else
    z;
  end;
  try
    with A, B do WriteLn(x:3:2, -y div 2, s as T);
  except
    on E: Exception do raise E at Address;
    else raise;
  end;
  try f finally g end;
  asm mov eax, 1 end;
end;
initialization
  Start;
finalization
  Stop;
end.
