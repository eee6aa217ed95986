unit Hinted;

interface

type
  TOld = class
    procedure Former; deprecated;
    function Both: Integer; virtual; deprecated;
    procedure Kept;
  end;

  TPipe = type Integer platform;
  TShared = Integer library;

const
  NoPipe = -1 platform;

var
  Pipe: TPipe = NoPipe platform;

procedure Away; deprecated;
function Here: Integer; stdcall; Deprecated;

implementation

procedure TOld.Former;
begin
end;

function TOld.Both: Integer;
begin
  Result := 0;
end;

procedure TOld.Kept;
begin
end;

procedure Away; DEPRECATED;
begin
end;

function Here: Integer;
var
  Platform: Integer;
begin
  Platform := 1;
  Result := Platform;
end;

end.
