unit Figures;

{ Plane figures and a list that owns them. }

interface

uses
  SysUtils, Classes,
  Math;

const
  MaxFigures = 64;
  DefaultName = 'figure';

type
  TFigureKind = (fkCircle, fkPolygon, fkPath);
  TFigureKinds = set of TFigureKind;

  TFigure = class;
  TFigureClass = class of TFigure;

  EFigure = class(Exception);

  TFigureEvent = procedure(Sender: TObject; Figure: TFigure) of object;

  TFigure = class(TPersistent)
  private
    FName: string;
    FKind: TFigureKind;
    FPublic, FPrivate: Boolean;
    function GetTitle: string;
    procedure SetName(const Value: string);
  protected
    procedure Changed; virtual;
  public
    constructor Create(const AName: string); virtual;
    destructor Destroy; override;
    function Area: Double; virtual; abstract;
    class function Describe: string;
    property Title: string read GetTitle;
  published
    property Name: string read FName write SetName;
    property Kind: TFigureKind read FKind default fkCircle;
  end;

  TFigureList = class
  private
    FItems: array[0..MaxFigures - 1] of TFigure;
    FCount: Integer;
    FOnAdd: TFigureEvent;
    function GetItem(Index: Integer): TFigure;
  public
    function Add(Figure: TFigure): Integer;
    procedure Clear;
    property Items[Index: Integer]: TFigure read GetItem; default;
    property OnAdd: TFigureEvent read FOnAdd write FOnAdd;
  end;

function TotalArea(List: TFigureList): Double;

implementation

uses
  FigureTexts;

var
  Created: Integer = 0;

{ TFigure }

constructor TFigure.Create(const AName: string);
begin
  inherited Create;
  FName := AName;
  Inc(Created);
end;

destructor TFigure.Destroy;
begin
  Dec(Created);
  inherited Destroy;
end;

procedure TFigure.Changed;
begin
end;

class function TFigure.Describe: string;
begin
  Result := ClassName + ' of ' + IntToStr(Created);
end;

function TFigure.GetTitle: string;
begin
  if FName = '' then
    Result := DefaultName
  else
    Result := FName;
end;

procedure TFigure.SetName(const Value: string);
begin
  if Value <> FName then
  begin
    FName := Value;
    Changed;
  end;
end;

{ TFigureList }

function TFigureList.Add(Figure: TFigure): Integer;
begin
  if FCount = MaxFigures then
    raise EFigure.CreateFmt('More than %d', [MaxFigures]);
  FItems[FCount] := Figure;
  Result := FCount;
  Inc(FCount);
  if Assigned(FOnAdd) then
    FOnAdd(Self, Figure);
end;

procedure TFigureList.Clear;
var
  I: Integer;
begin
  for I := FCount - 1 downto 0 do
    FItems[I].Free;
  FCount := 0;
end;

function TFigureList.GetItem(Index: Integer): TFigure;
begin
  Result := FItems[Index];
end;

{ What is no method. }

function TotalArea(List: TFigureList): Double;
var
  I: Integer;
begin
  Result := 0;
  for I := 0 to List.FCount - 1 do
    Result := Result + List[I].Area;
end;

initialization
  Created := 0;

finalization
  if Created > 0 then
    OutputDebugString('left over');

end.
