unit Shapes;

{ Plane figures that know their area, and a list that adds them up.
  Put the caret next to a parenthesis: it and its partner light up. }

interface

uses
  SysUtils, Classes, Math;

type
  { The base of all figures. }
  TShape = class
  private
    FName: string;
  public
    constructor Create(const AName: string);
    function Area: Double; virtual; abstract;
    property Name: string read FName;
  end;

  TCircle = class(TShape)
  private
    FRadius: Double;
  public
    constructor Create(ARadius: Double);
    function Area: Double; override;
  end;

  TPolygon = class(TShape)
  private
    FPoints: array of TPoint;
  public
    function Area: Double; override;
  end;

function TotalArea(Shapes: TList): Double;

implementation

{$R-}

const
  CircleName = 'circle';
  NoShapes = 'It''s an empty list' + #13#10;

constructor TShape.Create(const AName: string);
begin
  inherited Create;
  FName := AName;
end;

constructor TCircle.Create(ARadius: Double);
begin
  inherited Create(CircleName);
  FRadius := Max(ARadius, 0.0);
end;

function TCircle.Area: Double;
begin
  Result := Pi * Sqr(FRadius);
end;

function TPolygon.Area: Double;
var
  I, Next: Integer;
begin
  Result := 0;
  for I := 0 to High(FPoints) do
  begin
    Next := (I + 1) mod Length(FPoints); // the last point meets the first
    Result := Result + (FPoints[I].X * FPoints[Next].Y - FPoints[Next].X * FPoints[I].Y);
  end;
  Result := Abs(Result) / 2;
end;

function TotalArea(Shapes: TList): Double;
var
  I: Integer;
begin
  if Shapes.Count = 0 then
    raise EListError.Create(NoShapes);
  Result := 0;
  for I := 0 to Shapes.Count - 1 do
    Result := Result + TShape(Shapes[I]).Area;
end;

end.
