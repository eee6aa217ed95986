unit Services;

interface

uses
  ActiveX, ComObj;

type
  IService = interface;
  IServiceEvents = dispinterface;

  IBase = interface(IUnknown)
    ['{6E6F7420-6120-7265-616C-206775696421}']
    function GetName: WideString; safecall;
    procedure SetName(const Value: WideString); safecall;
    property Name: WideString read GetName write SetName;
  end;

  IService = interface(IBase)
    procedure Start; stdcall;
    procedure Stop(Force: WordBool; out Left: Integer); stdcall;
  end;

  IServiceEvents = dispinterface
    ['{6E6F7420-6120-7265-616C-206775696422}']
    procedure Started; dispid 1;
    property Count: Integer readonly dispid 2;
  end;

  TService = class(TInterfacedObject, IBase, IService)
  private
    FName: WideString;
    FInner: IBase;
    function GetName: WideString; safecall;
    procedure SetName(const Value: WideString); safecall;
    procedure IService.Start = Launch;
    procedure Launch; stdcall;
    procedure Stop(Force: WordBool; out Left: Integer); stdcall;
  protected
    property Inner: IBase read FInner implements IBase;
  end;

const
  IID_IBase: TGUID = '{6E6F7420-6120-7265-616C-206775696421}';

implementation

function TService.GetName: WideString;
begin
  Result := FName;
end;

procedure TService.SetName(const Value: WideString);
begin
  FName := Value;
end;

procedure TService.Launch;
begin
  (FInner as IService).Start;
  if FInner is TService then
    Exit;
end;

procedure TService.Stop(Force: WordBool; out Left: Integer);
begin
  Left := 0;
end;

initialization
  TComponentFactory.Create(ComServer, TService, IID_IBase, ciMultiInstance, tmApartment);
end.
