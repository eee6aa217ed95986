unit Overloads;

interface

type
  TWriter = class
  public
    constructor Create; overload;
    constructor Create(Size: Integer); overload;
    procedure Put(Value: Integer); overload;
    procedure Put(const Value: string); overload;
    procedure Put(Value: Double; Digits: Integer = 2); overload;
  end;

function Max(A, B: Integer): Integer; overload;
function Max(A, B: Double): Double; overload;

implementation

constructor TWriter.Create;
begin
  Create(512);
end;

constructor TWriter.Create(Size: Integer);
begin
  inherited Create;
end;

procedure TWriter.Put(Value: Integer);
begin
  Put(IntToStr(Value));
end;

procedure TWriter.Put(const Value: string);
begin
end;

procedure TWRITER.PUT(Value: Double; Digits: Integer);
begin
  Put(Format('%.*f', [Digits, Value]));
end;

function Max(A, B: Integer): Integer; overload;

  procedure Check;
  begin
  end;

begin
  Check;
  if A > B then Result := A else Result := B;
end;

function Max(A, B: Double): Double; overload;

  procedure Check;
  begin
  end;

begin
  Check;
  if A > B then Result := A else Result := B;
end;

end.
