unit Cut;

interface

uses
  Classes;

type
  TKept = class
    procedure One;
    procedure Two;
  end;

implementation

procedure TKept.One;

  procedure Inner;
  begin
  end;

begin
  Inner;
end;

procedure TKept.Two;

  function Reached: Boolean;
  begin
    Result := True;
  end;

begin
  if Reached then
  begin
