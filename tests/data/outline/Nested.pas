unit Nested;

interface

type
  TTree = class
    function Depth: Integer;
    procedure Walk;
    procedure Print;
  end;

procedure Solve(Size: Integer);

implementation

function TTree.Depth: Integer;

  function Below(Level: Integer): Integer;

    function Larger(A, B: Integer): Integer;
    begin
      if A > B then
        Result := A
      else
        Result := B;
    end;

  begin
    Result := Larger(Level, Level + 1);
  end;

begin
  Result := Below(0);
end;

{ The routines of Walk that follow the first lose the class. }
procedure TTree.Walk;

  procedure Left;
  begin
  end;

  procedure Right;

    procedure Deeper;
    begin
    end;

  begin
    Deeper;
  end;

begin
  Left;
  Right;
end;

{ The routine in Print takes the name of the type before it. }
procedure TTree.Print;
type
  TLine = string[80];
var
  Line: TLine;

  procedure Flush;
  begin
    WriteLn(Line);
  end;

begin
  Flush;
end;

procedure Solve(Size: Integer);

  procedure Step(N: Integer); forward;

  procedure Undo(N: Integer);
  begin
    if N > 0 then
      Step(N - 1);
  end;

  procedure Step(N: Integer);
  begin
    Undo(N);
  end;

begin
  Step(Size);
end;

end.
